#include "validation/calibration/TaraDocument.h"

#include "framework/chart/GroupColours.h"
#include "framework/document/Define.h"
#include "framework/document/GridRows.h"
#include "framework/document/Messages.h"
#include "framework/files/CodePage.h"
#include "framework/files/DataFileReader.h"
#include "framework/files/DataFileWriter.h"
#include "framework/text/NumberText.h"
#include "framework/text/TextFunctions.h"
#include "framework/text/TextNumber.h"
#include "stats/CheckedArithmetic.h"
#include "stats/RuntimeFailure.h"
#include "validation/calibration/TaraTexts.h"

#include <algorithm>
#include <cmath>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{

/// In characters.
constexpr int kRatioCell = 14;
/// Deliberate: the headers of a new document have three decimals, whatever else holds.
constexpr int kResetDecimals = 3;
constexpr ChartColour kLineColour{255, 0, 0};

SizeField SizeOfGrid(QLatin1StringView control, const QString& caption, const QString& initial, int maximum)
{
    return {.control = control,
            .caption = caption,
            .initial = initial,
            .minimum = 3,
            .maximum = maximum,
            .refuses = SizeField::Refuses::Outside,
            // Deliberate: the count of rows takes the place of a refused count of columns, too.
            .fallback = SizeField::Fallback::GridRows,
            .beeps = true};
}

const DocumentShape& TaraShape()
{
    static const DocumentShape kShape = [] {
        DocumentShape shape{
            .key = "TARA"_L1,
            .inputsSelect = true,
            .initialUnit = u"µg/ml"_s,
            .headersAreData = true,
            .digits = {.interi = 7, .decimali = 3},
            .sizes = {SizeOfGrid(TaraDocument::kGroups, u"N. gruppi (concentrazioni)"_s, u"5"_s, 15),
                      SizeOfGrid(TaraDocument::kReplicates, u"N. dati per gruppo (risposte)"_s, u"3"_s, 40)},
            .fields = {{TaraDocument::kTotal, FieldKind::Size, u"N. dati totali"_s, u"9"_s},
                       {"FrameConc"_L1, FieldKind::Caption, {}},
                       {"Regr"_L1, FieldKind::Result, u"Coefficiente di correlazione"_s},
                       {"CoeffA"_L1, FieldKind::Result, u"Ordinata all'origine"_s},
                       {"CoeffB"_L1, FieldKind::Result, u"Coefficiente di regressione"_s},
                       {"Sa"_L1, FieldKind::Result, u"Deviazione standard dell'ordinata all'origine"_s},
                       {"Sb"_L1, FieldKind::Result, u"Deviazione standard del coefficiente di regressione"_s},
                       {"ConfLim1"_L1, FieldKind::Result, u"a+ts(a) ="_s},
                       {"ConfLim2"_L1, FieldKind::Result, u"a-ts(a) ="_s}},
            // Deliberate: the level applied is 5 %, and the title says otherwise.
            .tables = {{"SprLinearita"_L1,
                        u"LINEARITA': Analisi della varianza"_s,
                        {u"Variazione"_s, u"Devianza"_s, u"GdL"_s, u"Varianza"_s, u"F"_s,
                         u"Signif. (0,05%)"_s},
                        {u"Regressione"_s, u"Curvatura"_s, u"Errore"_s, u"Totali"_s},
                        {u"00000"_s, u"00000"_s, u"000--"_s, u"00---"_s}}},
            .lines = {{FileLine::Kind::Reserved},
                      {FileLine::Kind::Count, TaraDocument::kReplicates},
                      {FileLine::Kind::Count, TaraDocument::kGroups},
                      {FileLine::Kind::Text, TaraDocument::kTotal, u"N. dati totali"_s},
                      {FileLine::Kind::Blank}},
            .charts = {{"VtGrafRegr"_L1, u"Regressione"_s}, {"VtGrafProp"_L1, u"Proporzionalità"_s}},
            .survives = FailureKind::DivisionByZero,
        };
        shape.sizes[0].countsColumns = true;
        shape.sizes[0].counted = u"gruppi"_s;
        shape.sizes[1].rowsOf = SizeField::kAllColumns;
        shape.sizes[1].counted = u"dati per gruppo"_s;
        return shape;
    }();
    return kShape;
}

/// Deliberate: the blanks in front differ.
QString SignificanceText(const TaraRatio& ratio)
{
    return ratio.significant ? u"  (S)"_s : u" (NS)"_s;
}

} // namespace

TaraDocument::TaraDocument(const DocumentContext& context) : TestDocument(TaraShape(), context) {}

std::vector<NamedValue> TaraDocument::Values() const
{
    if (!m_last)
        return {};
    const TaraResults& r = m_last->results;
    return {{"a"_L1, r.a},
            {"b"_L1, r.b},
            {"r"_L1, r.r},
            {"Sa"_L1, r.sa},
            {"Sb"_L1, r.sb},
            {"ConfLimSup"_L1, r.confLimSup},
            {"ConfLimInf"_L1, r.confLimInf},
            {"DevReg"_L1, r.devReg},
            {"DevCurv"_L1, r.devCurv},
            {"DevErr"_L1, r.devErr},
            {"DevRes"_L1, r.devRes},
            {"VarCurv"_L1, r.varCurv},
            {"VarErr"_L1, r.varErr},
            {"FReg"_L1, r.reg.f},
            {"PReg"_L1, r.reg.p},
            {"FCurv"_L1, r.curv.f},
            {"PCurv"_L1, r.curv.p},
            {"t1"_L1, r.t1},
            {"t2"_L1, r.t2},
            {"D"_L1, r.d}};
}

void TaraDocument::ResetOwn()
{
    DataGrid& grid = Grid();
    const DataGrid::Redraw redraw(grid);
    grid.SetSize(Count(kReplicates), Count(kGroups));
    for (int col = 0; col < grid.Cols(); ++col)
        grid.SetColumnHeader(col, DecimalText(col + 1, kResetDecimals, Context().define.DecSep));
}

void TaraDocument::ForgetNumbers()
{
    m_last.reset();
    m_limits.clear();
}

void TaraDocument::ShowInputs()
{
    SetControlText("FrameConc"_L1, u"Concentrazioni "_s + TrimBlanks(InputData(kUnitInput)));
}

void TaraDocument::ResizeGrid()
{
    const Int16 groups = Count(kGroups);
    const Int16 replicates = Count(kReplicates);
    const Int16 total = groups * replicates;
    DataGrid& grid = Grid();
    const DataGrid::Redraw redraw(grid);
    grid.SetSize(replicates.Value(), groups.Value());
    SetControlText(kTotal, QString::number(total.Value()));
    FormatConcHeaders();
    grid.FillEmptyWithZero();
}

void TaraDocument::ChooseDigits(Digits digits)
{
    TestDocument::ChooseDigits(digits);
    const QStringList before = Grid().Cells().headers;
    const QStringList after = FormattedHeaders();
    int rounded = 0;
    for (qsizetype col = 0; col < after.size(); ++col)
        rounded += ConcNumber(before[col]) != ConcNumber(after[col]) ? 1 : 0;
    if (rounded == 0) {
        FormatConcHeaders();
        return;
    }
    // Deliberate: another number format does not count as a change, although this is a step.
    const bool changeMade = Grid().Edits().ChangeMade();
    Grid().Edits().SetHeaders(after);
    Grid().Edits().SetChangeMade(changeMade);
    TellDeed(u"Concentrazioni arrotondate per il formato: %1 (Ctrl+Z le riporta)"_s.arg(rounded));
}

QString TaraDocument::ResultNotice() const
{
    const int empty = m_last ? m_last->numbers.empty : 0;
    return empty == 0 ? QString() : u"Celle vuote, contate come 0: %1"_s.arg(empty);
}

std::optional<double> TaraDocument::ConcNumber(const QString& header) const
{
    return NumberIn(header, Context().define.DecSep);
}

QString TaraDocument::ConcText(const QString& text) const
{
    const QString& decSep = Context().define.DecSep;
    const auto number = ConcNumber(text);
    return number ? DecimalText(*number, ConcDigits().decimali, decSep) : text;
}

QStringList TaraDocument::FormattedHeaders() const
{
    QStringList headers;
    for (int col = 0; col < Grid().Cols(); ++col)
        headers +=
            DecimalText(Concentration(col).value_or(col + 1), ConcDigits().decimali, Context().define.DecSep);
    return headers;
}

void TaraDocument::FormatConcHeaders()
{
    const QStringList headers = FormattedHeaders();
    const DataGrid::Redraw redraw(Grid()); // the views fit their columns once
    for (int col = 0; col < Grid().Cols(); ++col)
        Grid().SetColumnHeader(col, headers[col]);
}

std::optional<TaraDocument::GridNumbers> TaraDocument::ReadTaraGrid() const
{
    const DataGrid& grid = Grid();
    const auto cols = static_cast<std::size_t>(grid.Cols());
    GridNumbers numbers{.conc = std::vector<double>(cols),
                        .risp = std::vector<double>(cols * static_cast<std::size_t>(grid.Rows()))};
    for (std::size_t i = 0; i < cols; ++i) {
        const QString header = TrimBlanks(grid.ColumnHeader(static_cast<int>(i)));
        numbers.conc[i] = header.isEmpty() ? 0 : TextToDouble(header, Context().define.DecSep);
        if (numbers.conc[i] <= 0)
            return std::nullopt;
        for (int row = 0; row < grid.Rows(); ++row) {
            const auto shown = grid.TextValue(row, static_cast<int>(i));
            numbers.risp[static_cast<std::size_t>(row) * cols + i] = shown.value_or(0);
            numbers.empty += shown ? 0 : 1;
        }
    }
    return numbers;
}

CalcEnd TaraDocument::CalcTest()
{
    auto numbers = ReadTaraGrid();
    if (!numbers)
        return Refuse(u"Mancano alcuni valori di concentrazione.\r\nImpossibile calcolare i risultati"_s);
    const std::int16_t count = Count(kTotal); // the first of the three to fail
    const TaraData data{.conc = numbers->conc,
                        .risp = numbers->risp,
                        .groups = Count(kGroups),
                        .replicates = Count(kReplicates),
                        .count = count};
    // A reading that stopped early leaves sizes for which there is no grid.
    if (data.groups > Grid().Cols() || (data.groups > 0 && data.replicates > Grid().Rows()))
        throw RuntimeFailure(FailureKind::TypeMismatch);
    const TaraResults results = CalcRegr(data, Context().fTable, [this] {
        ShowStatisticsFailure(Context().messages, u"Overflow numerico !"_s);
    });
    if (results.end == TaraEnd::AllZero)
        return Refuse(u"Tutti i valori sono pari a zero, impossibile calcolare i risultati."_s);
    if (results.end == TaraEnd::NegativeResidual)
        return Refuse(u"Spiacente, ma con questi valori è impossibile calcolare i risultati."_s);
    m_last = {.results = results,
              .numbers = std::move(*numbers),
              .groups = data.groups,
              .replicates = data.replicates,
              .count = data.count};
    ShowResults();
    ShowTable();
    ShowTexts();
    return CalcEnd::Done;
}

void TaraDocument::ShowResults()
{
    const TaraResults& r = m_last->results;
    SetControlText("Regr"_L1, Shown(r.r));
    SetControlText("CoeffA"_L1, Shown(r.a));
    SetControlText("CoeffB"_L1, Shown(r.b));
    SetControlText("Sa"_L1, Shown(r.sa));
    SetControlText("Sb"_L1, Shown(r.sb));
    SetControlText("ConfLim1"_L1, Shown(r.confLimSup));
    SetControlText("ConfLim2"_L1, Shown(r.confLimInf));
}

void TaraDocument::ShowTable()
{
    const TaraResults& r = m_last->results;
    const auto ratio = [this](const TaraRatio& each) {
        return each.shown ? Shown(*each.shown) : CenterStr(each.significant ? u"S"_s : u"NS"_s, kRatioCell);
    };
    Table("SprLinearita")
        ->Fill({{Shown(r.devReg), u"1"_s, Shown(r.devReg), ratio(r.reg), SignificanceText(r.reg)},
                {Shown(r.devCurv), ShownCount(m_last->groups - 2), Shown(r.varCurv), ratio(r.curv),
                 SignificanceText(r.curv)},
                {Shown(r.devErr), ShownCount(m_last->count - m_last->groups), Shown(r.varErr)},
                {Shown(r.devTot), ShownCount(m_last->count - 1)}});
}

void TaraDocument::ShowTexts()
{
    const TaraResults& r = m_last->results;
    const TaraShown shown{.a = Shown(r.a),
                          .b = Shown(std::fabs(r.b)),
                          .d = Shown(std::fabs(r.d)),
                          .unit = TrimBlanks(InputData(kUnitInput))};
    Conclude({TaraConclusions(Language::Italian, r, shown), TaraConclusions(Language::English, r, shown)});
}

void TaraDocument::CalcCharts()
{
    m_limits.clear();
    m_colours = GroupColours(static_cast<std::size_t>(m_last->groups), ClockSeed());
    const TaraResults& r = m_last->results;
    const Real sup = r.confLimSup;
    const Real inf = r.confLimInf;
    const double x1 = ((sup - r.a) / r.b).Value();
    const double x3 = ((inf - r.a) / r.b).Value();
    m_limits = {{x1, sup.Value(), 0, sup.Value()},
                {0, r.a, 0, ((inf + sup) / 2.0).Value()},
                {x3, inf.Value(), 0, inf.Value()}};
}

ChartData TaraDocument::Chart(std::size_t index, Language language) const
{
    ChartData chart = TestDocument::Chart(index, language);
    if (!m_last)
        return chart;
    if (index == 0)
        DrawRegression(chart, language);
    else if (!m_limits.empty())
        DrawProportionality(chart, language);
    return chart;
}

void TaraDocument::DrawRegression(ChartData& chart, Language language) const
{
    static const InBoth<QString> kTitle = {u"Regressione"_s, u"Linearity"_s};
    static const InBoth<QString> kXTitle = {u"Concentrazioni"_s, u"Concentrations"_s};
    static const InBoth<QString> kYTitle = {u"Risposte"_s, u"Results"_s};
    chart.title = kTitle[language];
    chart.footnote = ChartFootnote(language);
    chart.x.title = kXTitle[language];
    chart.x.quantity = u"concentrazione"_s;
    chart.y.title = kYTitle[language];
    chart.y.quantity = u"risposta"_s;
    chart.series = {{.line = false,
                     .marks = true,
                     .colourGroup = m_last->replicates,
                     .fitted = true,
                     .colours = m_colours,
                     .fitColour = kLineColour}};
    const TaraData data = m_last->Data();
    for (int i = 0; i < data.groups; ++i) {
        for (int j = 0; j < data.replicates; ++j)
            chart.rows.push_back({GeneralValue(data.Conc(i)), GeneralValue(data.Risp(j, i))});
    }
}

void TaraDocument::DrawProportionality(ChartData& chart, Language language) const
{
    static const InBoth<QString> kTitle = {u"Proporzionalità"_s, u"Proportionality"_s};
    chart.title = kTitle[language];
    chart.footnote = ChartFootnote(language);
    chart.x.quantity = u"concentrazione"_s;
    chart.y.quantity = u"risposta"_s;
    chart.y.showsZero = true;
    chart.series = {{}, {}};
    chart.rows = m_limits;
    // Of limits that are one there is but a point.
    const double a = m_last->results.a;
    if (m_last->results.confLimSup == m_last->results.confLimInf) {
        chart.x.scale = ChartScale{-1, 1};
        chart.y.scale = ChartScale{std::min(a, 0.0) - 1, std::max(a, 0.0) + 1};
    }
}

void TaraDocument::ReadBody(DataFileReader& reader, int fieldCount)
{
    Grid().SetSize(Count(kReplicates), Count(kGroups));
    Expect(u"la quantità di concentrazioni"_s);
    const int concentrations = CountIn(FromCodePage(reader.ReadField()));
    Expect(u"una concentrazione"_s);
    for (int i = 0; i < concentrations; ++i) {
        QString text = FromCodePage(reader.ReadField());
        if (Context().define.DecSep == u",")
            text.replace(u'.', u',');
        if (i < Grid().Cols())
            Grid().SetColumnHeader(i, ConcText(text));
    }
    Expect(u"una riga di dati"_s);
    ReadRows(reader, Grid(), fieldCount);
}

void TaraDocument::WriteBody(DataFileWriter& writer) const
{
    writer.WriteNumber(Grid().Cols());
    for (const QString& header : Grid().Cells().headers)
        writer.WriteText(ConcText(header).replace(u',', u'.'), u"Concentrazioni");
    TestDocument::WriteBody(writer);
}
