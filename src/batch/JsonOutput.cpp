#include "batch/JsonOutput.h"

#include "batch/JsonWriter.h"
#include "framework/chart/ChartData.h"
#include "framework/document/FieldSet.h"
#include "framework/document/TestDocument.h"
#include "framework/document/TextTable.h"
#include "framework/grid/DataGrid.h"
#include "framework/text/Language.h"
#include "framework/text/TextFunctions.h"
#include "stats/RuntimeFailure.h"

#include <algorithm>
#include <optional>
#include <ranges>
#include <type_traits>
#include <variant>
#include <vector>

using namespace Qt::StringLiterals;

namespace
{

/// Writes values of all kinds, each by its type: what is not there becomes null, what stands in both
/// languages an object of two, a list a list of its values.
class JsonVisitor
{
public:
    template<typename Value>
    void Member(QLatin1StringView key, const Value& value)
    {
        m_json.Key(key);
        Put(value);
    }
    /// An object with the members that fill adds.
    template<typename Fill>
    requires std::is_invocable_v<Fill>
    void Put(const Fill& fill)
    {
        m_json.BeginObject();
        fill();
        m_json.EndObject();
    }

    void Put(QLatin1StringView text) { m_json.Text(text); }
    void Put(const QString& text) { m_json.Text(text); }
    void Put(int number) { m_json.Number(number); }
    void Put(double number) { m_json.Number(number); }
    void Put(bool value) { m_json.Bool(value); }

    template<typename Value>
    void Put(const std::optional<Value>& value)
    {
        if (value)
            Put(*value);
        else
            m_json.Null();
    }
    template<typename Value>
    void Put(const InBoth<Value>& both)
    {
        Put([&] {
            Member("it"_L1, both.it);
            Member("en"_L1, both.en);
        });
    }
    template<typename... Values>
    void Put(const std::variant<Values...>& value)
    {
        std::visit([this](const auto& held) { Put(held); }, value);
    }
    template<std::ranges::range List>
    requires(!std::is_convertible_v<List, QString>) void Put(const List& list)
    {
        m_json.BeginList();
        for (const auto& value : list)
            Put(value);
        m_json.EndList();
    }

    /// As many rows as the grid has, a row a list of cell texts.
    void Put(const DataGrid* grid)
    {
        m_json.BeginList();
        for (int row = 0; row < grid->Rows(); ++row) {
            m_json.BeginList();
            for (int col = 0; col < grid->Cols(); ++col)
                m_json.Text(grid->Text(row, col));
            m_json.EndList();
        }
        m_json.EndList();
    }
    void Put(const TextTable* table)
    {
        if (table == nullptr)
            m_json.Null();
        else
            Put(table->Rows());
    }
    void Put(const RuntimeFailure* failure)
    {
        if (failure == nullptr) {
            m_json.Null();
            return;
        }
        Put([&] {
            Member("number"_L1, failure->Number());
            Member("text"_L1, FailureText(*failure));
        });
    }
    void Put(const CollectedMessage& message)
    {
        Put([&] {
            Member("icon"_L1, IconName(message.icon));
            Member("title"_L1, message.title);
            Member("text"_L1, message.text);
        });
    }
    void Put(const ChartData& chart);

    QByteArray Bytes() const { return m_json.Bytes(); }

private:
    static QLatin1StringView IconName(MessageIcon icon);

    JsonWriter m_json;
};

QLatin1StringView JsonVisitor::IconName(MessageIcon icon)
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

/// Nothing where the chart has no such texts.
std::optional<QStringList> AnyTexts(const QStringList& texts)
{
    return texts.isEmpty() ? std::nullopt : std::optional(texts);
}

void JsonVisitor::Put(const ChartData& chart)
{
    Put([&] {
        Member("name"_L1, chart.name);
        Member("title"_L1, chart.title);
        Member("footnote"_L1, chart.footnote);
        Member("xTitle"_L1, chart.x.title);
        Member("yTitle"_L1, chart.y.title);
        Member("seriesNames"_L1, AnyTexts(chart.SeriesNames()));
        Member("rowLabels"_L1, AnyTexts(chart.rowLabels));
        Member("data"_L1, chart.rows);
    });
}

/// The size fields by their names; those of a control array ("Dimensioni0", "Dimensioni1") as one list.
void PutSizes(JsonVisitor& json, const TestDocument& document)
{
    const std::vector<Field> sizes = document.Fields().OfKind(FieldKind::Size);
    for (std::size_t i = 0; i < sizes.size();) {
        const QLatin1StringView control = sizes[i].control;
        if (!control.endsWith('0'_L1)) {
            json.Member(control, sizes[i++].text);
            continue;
        }
        const QLatin1StringView array = control.chopped(1);
        QStringList texts;
        for (; i < sizes.size() && sizes[i].control.startsWith(array); ++i)
            texts += sizes[i].text;
        json.Member(array, texts);
    }
}

/// A result's text, or whether a notice is seen.
void PutResults(JsonVisitor& json, const TestDocument& document)
{
    for (const Field& field : document.Fields().All()) {
        if (field.kind == FieldKind::Result)
            json.Member(field.control, field.text);
        else if (field.kind == FieldKind::Notice)
            json.Member(field.control, field.visible);
    }
}

} // namespace

QByteArray JsonLine(const BatchResult& result, bool chartData)
{
    const TestDocument& document = result.document;
    JsonVisitor json;
    json.Put([&] {
        json.Member("file"_L1, result.file);
        json.Member("key"_L1, document.Info().key);
        json.Member("read"_L1, document.HowRead() == FileRead::Whole ? "complete"_L1 : "partial"_L1);
        json.Member("interi"_L1, document.Grid().GetDigits().interi);
        json.Member("decimali"_L1, document.Grid().GetDigits().decimali);
        json.Member("aInputData"_L1, document.Inputs());
        json.Member("size"_L1, [&] { PutSizes(json, document); });
        json.Member("option"_L1, document.Option());
        json.Member("headers"_L1, document.Headers());
        json.Member("grids"_L1, document.Grids());
        json.Member("results"_L1, [&] { PutResults(json, document); });
        json.Member("table"_L1, document.Table("SprLinearita"));
        json.Member("means"_L1, document.Table("GridMedieSerie"));
        json.Member("cConcl"_L1, document.Conclusions());
        json.Member("conclusions"_L1, document.ConclTexts());
        json.Member("verdict"_L1, document.Verdict());
        json.Member("values"_L1, [&] {
            for (const NamedValue& value : document.Values())
                json.Member(value.name, value.value);
        });
        json.Member("messages"_L1, result.messages);
        json.Member("failure"_L1, result.outcome.Failure());
        if (chartData)
            json.Member("charts"_L1,
                        result.outcome.Calculated() ? document.ShownCharts() : std::vector<ChartData>());
    });
    return json.Bytes() + '\n';
}

QByteArray Summary(const BatchResult& result)
{
    QString text = result.file + u'\n';
    if (result.outcome.Calculated()) {
        for (const Field& field : result.document.Fields().OfKind(FieldKind::Result))
            text += (field.caption.endsWith(u'=') ? u"  %1 %2\n"_s : u"  %1: %2\n"_s)
                        .arg(field.caption, field.text);
        for (const QString& conclusion : result.document.ConclText(Language::Italian))
            text += u'\n' + QString(conclusion).replace("\r\n"_L1, "\n"_L1) + u'\n';
    } else {
        text += u"  nessun risultato\n"_s;
    }
    return (text + u'\n').toUtf8();
}
