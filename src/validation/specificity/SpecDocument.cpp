#include "validation/specificity/SpecDocument.h"

#include "framework/text/Conclusions.h"
#include "framework/text/NumberText.h"
#include "framework/text/TextFunctions.h"
#include "framework/text/TextNumber.h"
#include "stats/Statistics.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

constexpr int kGroups = 2;
constexpr int kFieldsInRow = 3;
constexpr int kHeaderLines = 9;

// Places of the header lines behind the four header fields.
constexpr int kLineGruppoA = 5;
constexpr int kLineGruppoB = 8;

QString Heading(bool english)
{
    return english
               ? u"V A L I D A T I O N  OF  A N A L Y T I C A L  M E T H O D\r\n\r\nSPECIFICITY TEST\r\n"_s
               : u"C O N V A L I D A   D E L   M E T O D O   A N A L I T I C O\r\n\r\nTEST DELLA SPECIFICITA'\r\n"_s;
}

/// #1# and #2# the sizes of the groups. The wording of all texts is the required one.
QString NotDeterminableTemplate(bool english)
{
    return english
               ? u"The variances of the two groups of data are significant different.\r\n"
                 "Given the high dispersion of the results, with this numerosity of the data (#1# for the group "
                 "A e #2# for the group B) it is not possible to establish statistically (P = 95%) one "
                 "difference between the two groups.\r\n"
                 "Specificity statistically not determinable."_s
               : u"Le varianze dei due gruppi di dati sono significativamente diverse.\r\n"
                 "Data l'elevata dispersione dei risultati, con l'attuale numerosità dei dati (#1# per il "
                 "gruppo A e #2# per il gruppo B) non è possibile stabilire statisticamente (P = 95%) una "
                 "differenza tra i due gruppi.\r\n"
                 "Specificità statisticamente non determinabile."_s;
}

/// #1# the method, #2# the negation, #3# the analyte.
QString DecisionTemplate(bool english)
{
    return english ? u"The method #1##2# determine analyte #3# without having the interferences from other "
                     "known substances presents in the sample."_s
                   : u"Il metodo #1##2# è in grado di determinare l'analita #3# senza subire le interferenze "
                     "da parte di altre sostanze note presenti nel campione."_s;
}

QString VerdictText(const SpecResults& results, bool english)
{
    if (results.NotDeterminable())
        return english ? u"High dispertion data.\r\nSpecificity statistically not determinable"_s
                       : u"Dispersione dei dati elevata.\r\nSpecificità statisticamente non determinabile"_s;
    const QString negation = results.Significant() ? QString() : english ? u"NOT "_s : u"NON "_s;
    return (english ? u"Difference "_s : u"Differenza "_s) + negation +
           (english ? u"SIGNIFICANT "_s : u"SIGNIFICATIVA "_s) + u"(P = 95%)"_s;
}

} // namespace

SpecDocument::SpecDocument(const DocumentContext& context) : TestDocument("SPEC", context)
{
    NewDocument();
}

std::span<const SizeField> SpecDocument::SizeFields() const
{
    static const std::array kFields = {SizeField{.control = kGruppoA, .minimum = 5, .fallback = u"5"_s},
                                       SizeField{.control = kGruppoB, .minimum = 5, .fallback = u"5"_s}};
    return kFields;
}

std::span<const ResultField> SpecDocument::ResultFields() const
{
    static const std::array kFields = {
        ResultField{"MediaA"_L1, u"Media, gruppo A"_s},
        ResultField{"MediaB"_L1, u"Media, gruppo B"_s},
        ResultField{"InfConfA"_L1, u"Limite inferiore, gruppo A"_s},
        ResultField{"InfConfB"_L1, u"Limite inferiore, gruppo B"_s},
        ResultField{"SupConfA"_L1, u"Limite superiore, gruppo A"_s},
        ResultField{"SupConfB"_L1, u"Limite superiore, gruppo B"_s},
        ResultField{"SA"_L1, u"s², gruppo A"_s},
        ResultField{"SB"_L1, u"s², gruppo B"_s},
        ResultField{"F"_L1, u"F"_s},
        ResultField{"GdL"_L1, u"GdL"_s},
        ResultField{"T"_L1, u"t"_s},
        ResultField{"P"_L1, u"P"_s},
        ResultField{"Giudizio"_L1, u"Giudizio"_s},
    };
    return kFields;
}

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
            {"gdl"_L1, r.gdl},
            {"pT"_L1, r.pT},
            {"lowerA"_L1, r.a.lower},
            {"upperA"_L1, r.a.upper},
            {"lowerB"_L1, r.b.lower},
            {"upperB"_L1, r.b.upper}};
}

void SpecDocument::ResizeSpecGrid()
{
    const std::array counts = {CountIn(ControlText(kGruppoA)), CountIn(ControlText(kGruppoB))};
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

/// A message says why there is nothing to calculate.
bool SpecDocument::Refuse(const QString& why)
{
    Q_EMIT Pointer(false);
    Context().messages.Show(MessageIcon::Exclamation, Context().define.AppTitle, why);
    return false;
}

/// Deliberate: the hourglass stays on, and t shows 0.
bool SpecDocument::TellNoProbability(SpecEnd end)
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
    return false;
}

bool SpecDocument::CalcSpec()
{
    Q_EMIT Pointer(true);
    const Group a = ReadGroup(0, CountIn(ControlText(kGruppoA)));
    const Group b = ReadGroup(1, CountIn(ControlText(kGruppoB)));
    if (SumArray(a.values) == 0 || SumArray(b.values) == 0)
        return Refuse(
            u"I risultati di un gruppo sono tutti nulli. Non è possibile effettuare un' elaborazione "
            "statistica corretta!"_s);
    if (a.allEqual || b.allEqual)
        return Refuse(
            u"I risultati di un gruppo sono tutti uguali. Non è possibile effettuare un' elaborazione "
            "statistica corretta!"_s);
    const SpecResults results = CalcSpecificity(a.values, b.values);
    if (results.end != SpecEnd::Done)
        return TellNoProbability(results.end);
    m_results = results;
    ShowConclusions(results, CountOf(a.values), CountOf(b.values));
    ShowResults(results);
    ShowVerdict(results);
    Q_EMIT Changed();
    Q_EMIT Calculated();
    FillChart();
    Q_EMIT Pointer(false);
    return true;
}

void SpecDocument::ShowConclusions(const SpecResults& results, int countA, int countB)
{
    for (const bool english : {true, false}) {
        const QString negation = !results.Significant() ? QString() : english ? u" NOT"_s : u" NON"_s;
        const QString text =
            results.NotDeterminable()
                ? FillTemplate(NotDeterminableTemplate(english),
                               {QString::number(countA), QString::number(countB)})
                : FillTemplate(DecisionTemplate(english),
                               {TrimBlanks(InputData(0)), negation, TrimBlanks(InputData(1))});
        m_conclText[english ? 1 : 0] = Heading(english) + u"\r\n"_s + text;
    }
    SetConclusions(m_conclText[0]);
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
    SetControlText("GdL"_L1, FormatNumber(results.gdl, u"##0", Context().define.DecSep));
    SetControlText("T"_L1, Shown(results.t));
    SetControlText("P"_L1, Shown(results.pT));
}

void SpecDocument::ShowVerdict(const SpecResults& results)
{
    m_giudizioText = {VerdictText(results, false), VerdictText(results, true)};
    SetControlText("Giudizio"_L1, m_giudizioText[0]);
}

/// The displayed, rounded numbers: a bar a group, from limit to limit, with the mean between.
void SpecDocument::FillChart()
{
    const auto shown = [this](QLatin1StringView control) {
        return TextToDouble(ControlText(control), Context().define.DecSep);
    };
    m_chart.Clear();
    m_chart.type = ChartType::HighLow;
    m_chart.rowLabels = {u"A"_s, u"B"_s};
    m_chart.rows = {{shown("SupConfA"_L1), shown("InfConfA"_L1), shown("MediaA"_L1)},
                    {shown("SupConfB"_L1), shown("InfConfB"_L1), shown("MediaB"_L1)}};
    SetLanGraf(0);
}

void SpecDocument::SetLanGraf(int language)
{
    if (m_chart.IsEmpty())
        return;
    m_chart.title = language == 0 ? u"Specificità: medie"_s : u"Specificity: means"_s;
    m_chart.footnote = ChartFootnote(language);
    m_chart.x.title = language == 0 ? u"Gruppi"_s : u"Groups"_s;
    Q_EMIT ChartsChanged();
}

void SpecDocument::ResetSizes()
{
    for (const SizeField& field : SizeFields())
        SetControlText(field.control, field.fallback);
    Grid().SetSize(CountIn(ControlText(kGruppoA)), kGroups);
}

void SpecDocument::ResetResults()
{
    m_results.reset();
    for (const ResultField& field : ResultFields()) {
        // Deliberate: the limits show a bare 0, the other numbers 0 in the format.
        const bool plain = field.control == "GdL"_L1 || field.control.contains("Conf"_L1);
        SetControlText(field.control, plain ? u"0"_s : Shown(0));
    }
    SetControlText("Giudizio"_L1, u"Giudizio"_s);
    SetConclusions(QString());
    m_chart.Clear();
    Q_EMIT ChartsChanged();
}

void SpecDocument::ReadLines(DataFileReader& reader)
{
    const FileHead head = ReadHead(reader);
    const QStringList lines = ReadHeaderLines(reader, kHeaderLines);
    SetControlText(kGruppoA, TrimBlanks(lines[kLineGruppoA]));
    SetControlText(kGruppoB, TrimBlanks(lines[kLineGruppoB]));
    Grid().Clear();
    ResizeSpecGrid();
    for (int row = 0; row < Grid().Rows(); ++row)
        ReadRow(reader, Grid(), row, head.fieldCount);
    SetGridNumFormat(head.digits);
}

void SpecDocument::WriteLines(DataFileWriter& writer) const
{
    WriteHead(writer, kFieldsInRow);
    writer.WriteNumber(0);
    writer.WriteText(ControlText(kGruppoA), u"Gruppo A");
    writer.WriteText({}, u"");
    writer.WriteNumber(0);
    writer.WriteText(ControlText(kGruppoB), u"Gruppo B");
    WriteRows(writer, Grid());
}
