#include "batch/JsonOutput.h"

#include "batch/JsonWriter.h"

using namespace Qt::StringLiterals;

namespace
{

QLatin1StringView IconName(MessageIcon icon)
{
    switch (icon) {
    case MessageIcon::None:
        return "none"_L1;
    case MessageIcon::Information:
        return "information"_L1;
    case MessageIcon::Exclamation:
        return "exclamation"_L1;
    case MessageIcon::Critical:
        return "critical"_L1;
    case MessageIcon::Question:
        return "question"_L1;
    }
    return "none"_L1;
}

void WriteTexts(JsonWriter& json, const QStringList& texts)
{
    json.BeginList();
    for (const QString& text : texts)
        json.Text(text);
    json.EndList();
}

void WriteHeader(JsonWriter& json, const TestDocument& document)
{
    json.Key("interi"_L1);
    json.Number(document.Grid().GetDigits().interi);
    json.Key("decimali"_L1);
    json.Number(document.Grid().GetDigits().decimali);
    json.Key("aInputData"_L1);
    json.BeginList();
    for (int i = 0; i < document.InputCount(); ++i)
        json.Text(document.InputData(i));
    json.EndList();
    json.Key("size"_L1);
    json.BeginObject();
    for (const SizeField& field : document.SizeFields()) {
        json.Key(field.control);
        json.Text(document.ControlText(field.control));
    }
    json.EndObject();
    json.Key("option"_L1);
    if (const auto option = document.Option())
        json.Number(*option);
    else
        json.Null();
    json.Key("headers"_L1);
    json.Null();
}

void WriteGrid(JsonWriter& json, const DataGrid& grid)
{
    json.BeginList();
    for (int row = 0; row < grid.Rows(); ++row) {
        json.BeginList();
        for (int col = 0; col < grid.Cols(); ++col)
            json.Text(grid.Text(row, col));
        json.EndList();
    }
    json.EndList();
}

void WriteVerdict(JsonWriter& json, const TestDocument& document)
{
    const auto verdict = document.Verdict();
    if (!verdict) {
        json.Null();
        return;
    }
    json.BeginObject();
    json.Key("it"_L1);
    json.Text((*verdict)[0]);
    json.Key("en"_L1);
    json.Text((*verdict)[1]);
    json.EndObject();
}

void WriteResults(JsonWriter& json, const TestDocument& document)
{
    json.Key("results"_L1);
    json.BeginObject();
    for (const ResultField& field : document.ResultFields()) {
        json.Key(field.control);
        json.Text(document.ControlText(field.control));
    }
    json.EndObject();
    json.Key("table"_L1);
    json.Null();
    json.Key("means"_L1);
    json.Null();
    json.Key("cConcl"_L1);
    json.Text(document.Conclusions());
    json.Key("conclusions"_L1);
    json.BeginObject();
    json.Key("it"_L1);
    WriteTexts(json, document.ConclText(false));
    json.Key("en"_L1);
    WriteTexts(json, document.ConclText(true));
    json.EndObject();
    json.Key("verdict"_L1);
    WriteVerdict(json, document);
    json.Key("values"_L1);
    json.BeginObject();
    for (const auto& [name, value] : document.Values()) {
        json.Key(name);
        json.Number(value);
    }
    json.EndObject();
}

/// Null where the chart has no such texts.
void WriteTextsOrNull(JsonWriter& json, const QStringList& texts)
{
    if (texts.isEmpty())
        json.Null();
    else
        WriteTexts(json, texts);
}

void WriteChart(JsonWriter& json, const ChartData& chart)
{
    json.BeginObject();
    json.Key("name"_L1);
    json.Text(chart.name);
    json.Key("title"_L1);
    json.Text(chart.title);
    json.Key("footnote"_L1);
    json.Text(chart.footnote);
    json.Key("xTitle"_L1);
    json.Text(chart.x.title);
    json.Key("yTitle"_L1);
    json.Text(chart.y.title);
    json.Key("seriesNames"_L1);
    WriteTextsOrNull(json, chart.SeriesNames());
    json.Key("rowLabels"_L1);
    WriteTextsOrNull(json, chart.rowLabels);
    json.Key("data"_L1);
    json.BeginList();
    for (const auto& row : chart.rows) {
        json.BeginList();
        for (const double value : row)
            json.Number(value);
        json.EndList();
    }
    json.EndList();
    json.EndObject();
}

void WriteMessages(JsonWriter& json, const QList<CollectedMessage>& messages)
{
    json.BeginList();
    for (const CollectedMessage& message : messages) {
        json.BeginObject();
        json.Key("icon"_L1);
        json.Text(IconName(message.icon));
        json.Key("title"_L1);
        json.Text(message.title);
        json.Key("text"_L1);
        json.Text(message.text);
        json.EndObject();
    }
    json.EndList();
}

/// The failure that kept the document from its results: that of the reading where there was one, since what
/// it left out is what the calculation then lacks.
void WriteFailure(JsonWriter& json, const LoadOutcome& outcome)
{
    const auto& failure = outcome.reading ? outcome.reading : outcome.calculation;
    if (outcome.calculated || !failure) {
        json.Null();
        return;
    }
    json.BeginObject();
    json.Key("number"_L1);
    json.Number(failure->Number());
    json.Key("text"_L1);
    json.Text(QString::fromStdString(failure->Text()));
    json.EndObject();
}

} // namespace

QByteArray JsonLine(const BatchResult& result, bool chartData)
{
    const TestDocument& document = result.document;
    JsonWriter json;
    json.BeginObject();
    json.Key("file"_L1);
    json.Text(result.file);
    json.Key("key"_L1);
    json.Text(document.Info().key);
    json.Key("read"_L1);
    json.Text(result.outcome.reading ? "partial"_L1 : "complete"_L1);
    WriteHeader(json, document);
    json.Key("grids"_L1);
    json.BeginList();
    WriteGrid(json, document.Grid());
    json.EndList();
    WriteResults(json, document);
    json.Key("messages"_L1);
    WriteMessages(json, result.messages);
    json.Key("failure"_L1);
    WriteFailure(json, result.outcome);
    if (chartData) {
        json.Key("charts"_L1);
        json.BeginList();
        for (const ChartData* chart :
             result.outcome.calculated ? document.Charts() : std::vector<const ChartData*>())
            WriteChart(json, *chart);
        json.EndList();
    }
    json.EndObject();
    return json.Bytes() + '\n';
}

QByteArray Summary(const BatchResult& result)
{
    QString text = result.file + u'\n';
    if (result.outcome.calculated) {
        for (const ResultField& field : result.document.ResultFields())
            text += u"  %1: %2\n"_s.arg(field.caption, result.document.ControlText(field.control));
        for (const QString& conclusion : result.document.ConclText(false))
            text += u'\n' + QString(conclusion).replace("\r\n"_L1, "\n"_L1) + u'\n';
    } else {
        text += u"  nessun risultato\n"_s;
    }
    return (text + u'\n').toUtf8();
}
