#include "validation/specificity/SpecDocument.h"

#include "framework/document/Define.h"
#include "framework/document/GridRows.h"
#include "framework/document/Messages.h"
#include "framework/text/NumberText.h"
#include "framework/text/TextFunctions.h"
#include "stats/Statistics.h"
#include "validation/specificity/SpecTexts.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace
{

constexpr int kGroups = 2;

// Deliberate: without results the limits show a bare 0, the other numbers 0 in the format.
const DocumentShape& SpecShape()
{
    static const DocumentShape kShape = {
        .key = "SPEC"_L1,
        .inputs = 3,
        .digits = {.interi = 6, .decimali = 3},
        .sizes = {{.control = SpecDocument::kGruppoA,
                   .caption = u"N. determinazioni"_s,
                   .initial = u"5"_s,
                   .minimum = 5,
                   .rowsOf = 0},
                  {.control = SpecDocument::kGruppoB,
                   .caption = u"N. determinazioni"_s,
                   .initial = u"5"_s,
                   .minimum = 5,
                   .rowsOf = 1}},
        .fields = {{"MediaA"_L1, FieldKind::Result, u"Media, gruppo A"_s},
                   {"MediaB"_L1, FieldKind::Result, u"Media, gruppo B"_s},
                   {"InfConfA"_L1, FieldKind::Result, u"Limite inferiore, gruppo A"_s, u"0"_s},
                   {"InfConfB"_L1, FieldKind::Result, u"Limite inferiore, gruppo B"_s, u"0"_s},
                   {"SupConfA"_L1, FieldKind::Result, u"Limite superiore, gruppo A"_s, u"0"_s},
                   {"SupConfB"_L1, FieldKind::Result, u"Limite superiore, gruppo B"_s, u"0"_s},
                   {"SA"_L1, FieldKind::Result, u"s², gruppo A"_s},
                   {"SB"_L1, FieldKind::Result, u"s², gruppo B"_s},
                   {"F"_L1, FieldKind::Result, u"F"_s},
                   {"GdL"_L1, FieldKind::Result, u"GdL"_s, u"0"_s},
                   {"T"_L1, FieldKind::Result, u"t"_s},
                   {"P"_L1, FieldKind::Result, u"P"_s},
                   {"Giudizio"_L1, FieldKind::Result, u"Giudizio"_s, u"Giudizio"_s}},
        .lines = {{FileLine::Kind::Reserved},
                  {FileLine::Kind::Text, SpecDocument::kGruppoA, u"Gruppo A"_s},
                  {FileLine::Kind::Blank},
                  {FileLine::Kind::Reserved},
                  {FileLine::Kind::Text, SpecDocument::kGruppoB, u"Gruppo B"_s}},
        .charts = {{"VtGrafSpec"_L1}},
        .verdict = true,
    };
    return kShape;
}

} // namespace

SpecDocument::SpecDocument(const DocumentContext& context) : TestDocument(SpecShape(), context) {}

std::vector<NamedValue> SpecDocument::Values() const
{
    if (!m_results)
        return {};
    const SpecResults& r = *m_results;
    return {{"meanA"_L1, r.a.mean},
            {"meanB"_L1, r.b.mean},
            {"varA"_L1, r.a.variance},
            {"varB"_L1, r.b.variance},
            {"pF"_L1, r.pF},
            {"F"_L1, r.f},
            {"t"_L1, r.t},
            {"gdl"_L1, static_cast<double>(r.gdl)},
            {"pT"_L1, r.pT},
            {"lowerA"_L1, r.a.lower},
            {"upperA"_L1, r.a.upper},
            {"lowerB"_L1, r.b.lower},
            {"upperB"_L1, r.b.upper}};
}

void SpecDocument::ResizeGrid()
{
    const std::array counts = {Count(kGruppoA), Count(kGruppoB)};
    DataGrid& grid = Grid();
    const DataGrid::Redraw redraw(grid);
    grid.SetSize(std::max(counts[0], counts[1]), kGroups);
    grid.SetColumnHeader(0, u"Gruppo A"_s);
    grid.SetColumnHeader(1, u"Gruppo B"_s);
    grid.UnlockAll();
    grid.FillEmptyWithZero();
    for (int col = 0; col < kGroups; ++col) {
        for (int row = std::max<int>(0, counts[static_cast<std::size_t>(col)]); row < grid.Rows(); ++row) {
            grid.SetValue(row, col, std::nullopt);
            grid.SetLocked(row, col, true);
        }
    }
}

SpecDocument::Group SpecDocument::ReadGroup(int col, int count) const
{
    Group group;
    for (int row = 0; row < count; ++row) {
        const double value = Grid().TextNumber(row, col);
        // Deliberate: what a cell shows is compared with what the cell above holds, digits that it doesn't
        // show included.
        if (row > 0 && value != Grid().Value(row - 1, col))
            group.allEqual = false;
        group.values.push_back(value);
    }
    return group;
}

void SpecDocument::ResetOwn()
{
    Grid().SetSize(Count(kGruppoA), kGroups);
}

void SpecDocument::ForgetNumbers()
{
    m_results.reset();
    m_bars.clear();
}

/// Deliberate: the hourglass stays on, and t shows 0.
CalcEnd SpecDocument::TellNoProbability(SpecEnd end)
{
    SetControlText("T"_L1, u"0"_s);
    Q_EMIT Changed();
    if (end == SpecEnd::NoVariance) {
        Context().messages.Beep();
        Context().messages.Beep();
        ShowStatisticsFailure(Context().messages, u"Dati non validi !"_s);
    } else {
        ShowStatisticsFailure(Context().messages, u"Overflow numerico !"_s);
    }
    return CalcEnd::Refused;
}

CalcEnd SpecDocument::CalcTest()
{
    const Group a = ReadGroup(0, Count(kGruppoA));
    const Group b = ReadGroup(1, Count(kGruppoB));
    if (SumArray(a.values) == 0 || SumArray(b.values) == 0)
        return Refuse(
            u"I risultati di un gruppo sono tutti nulli. Non è possibile effettuare un' elaborazione "
            "statistica corretta!"_s);
    if (a.allEqual || b.allEqual)
        return Refuse(
            u"I risultati di un gruppo sono tutti uguali. Non è possibile effettuare un' elaborazione "
            "statistica corretta!"_s);
    const SpecResults results = CalcSpec(a.values, b.values);
    if (results.end != SpecEnd::Done)
        return TellNoProbability(results.end);
    m_results = results;
    ShowTexts(results, a, b);
    ShowResults(results);
    return CalcEnd::Done;
}

void SpecDocument::ShowTexts(const SpecResults& results, const Group& a, const Group& b)
{
    const SpecHeader header{.method = TrimBlanks(InputData(0)),
                            .analyte = TrimBlanks(InputData(1)),
                            .countA = static_cast<int>(a.values.size()),
                            .countB = static_cast<int>(b.values.size())};
    const auto text = [&](Language language) { return SpecConclusions(language, results, header); };
    Conclude({text(Language::Italian), text(Language::English)});
    SetVerdict({SpecVerdict(Language::Italian, results), SpecVerdict(Language::English, results)});
    SetControlText("Giudizio"_L1, SpecVerdict(Language::Italian, results));
}

void SpecDocument::ShowResults(const SpecResults& results)
{
    SetControlText("MediaA"_L1, Shown(results.a.mean));
    SetControlText("InfConfA"_L1, Shown(results.a.lower));
    SetControlText("SupConfA"_L1, Shown(results.a.upper));
    SetControlText("MediaB"_L1, Shown(results.b.mean));
    SetControlText("InfConfB"_L1, Shown(results.b.lower));
    SetControlText("SupConfB"_L1, Shown(results.b.upper));
    SetControlText("SA"_L1, Shown(results.a.variance));
    SetControlText("SB"_L1, Shown(results.b.variance));
    SetControlText("F"_L1, Shown(results.f));
    SetControlText("GdL"_L1, ShownCount(results.gdl));
    SetControlText("T"_L1, Shown(results.t));
    SetControlText("P"_L1, Shown(results.pT));
}

/// The displayed, rounded numbers.
void SpecDocument::CalcCharts()
{
    m_bars = {{ShownNumber("SupConfA"_L1), ShownNumber("InfConfA"_L1), ShownNumber("MediaA"_L1)},
              {ShownNumber("SupConfB"_L1), ShownNumber("InfConfB"_L1), ShownNumber("MediaB"_L1)}};
}

ChartData SpecDocument::Chart(std::size_t index, Language language) const
{
    ChartData chart = TestDocument::Chart(index, language);
    if (m_bars.empty())
        return chart;
    static const InBoth<QString> kTitle = {u"Specificità: medie"_s, u"Specificity: means"_s};
    static const InBoth<QString> kXTitle = {u"Gruppi"_s, u"Groups"_s};
    chart.type = ChartType::HighLow;
    chart.title = kTitle[language];
    chart.footnote = ChartFootnote(language);
    chart.x.title = kXTitle[language];
    chart.rowLabels = {u"A"_s, u"B"_s};
    chart.rows = m_bars;
    return chart;
}

void SpecDocument::ReadBody(DataFileReader& reader, int fieldCount)
{
    Grid().Clear();
    ResizeGrid();
    ReadRows(reader, Grid(), fieldCount);
}
