#include "validation/repeatability/PrecDocument.h"

#include "framework/text/Conclusions.h"
#include "framework/text/NumberText.h"
#include "framework/text/TextFunctions.h"
#include "framework/text/TextNumber.h"
#include "stats/Statistics.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace
{

constexpr int kHeaderLines = 6;
constexpr int kLineNDet = 5;

/// The tail probability of the confidence limits, shown beside them.
constexpr double kP = 0.05;

/// One minor division in each: no marks between.
constexpr int kMajorDivisions = 4;

QString Heading(bool english)
{
    return english
               ? u"V A L I D A T I O N  OF  A N A L Y T I C A L  M E T H O D\r\n\r\nPRECISION TEST\r\n"_s
               : u"C O N V A L I D A   D E L   M E T O D O   A N A L I T I C O\r\n\r\nTEST DELLA PRECISIONE\r\n"_s;
}

/// #1# the number of determinations, #2# P%, #3# the standard deviation. The wording is the required one.
QString Template(bool english)
{
    return english
               ? u"The precision of the medium analytical content estimated from an analyst with #1# "
                 "replications of the analysis expressed in precision percentage P% = (CV * t / Sqr(n)) as "
                 "statistical probability of 95% is :\r\n\r\nP% = ± #2#\r\n\r\n"
                 "The standard deviation of the measures is equal to: #3#"_s
               : u"La precisione del contenuto analitico medio valutato da un analista con #1# replicazioni "
                 "dell'analisi espressa in precisione percentuale P% = (CV * t / Sqr(n)) con una probabilità "
                 "statistica del 95% è :\r\n\r\nP% = ± #2#\r\n\r\n"
                 "La deviazione standard delle misure effettuate è pari a: #3#"_s;
}

} // namespace

PrecDocument::PrecDocument(const DocumentContext& context) : ColumnDocument("PREC", context, 3, u"6"_s)
{
    NewDocument();
}

std::span<const ResultField> PrecDocument::ResultFields() const
{
    static const std::array kFields = {
        ResultField{"Media"_L1, u"Media"_s},
        ResultField{"StDev"_L1, u"Dev. standard"_s},
        ResultField{"CV"_L1, u"CV"_s},
        ResultField{"GdL"_L1, u"GdL"_s},
        ResultField{"P"_L1, u"P"_s},
        ResultField{"T"_L1, u"t (p;n-1)"_s},
        ResultField{"InfConf"_L1, u"Inferiore"_s},
        ResultField{"SupConf"_L1, u"Superiore"_s},
        ResultField{"IntConf"_L1, u"Intervallo di Confidenza"_s},
    };
    return kFields;
}

std::vector<NamedValue> PrecDocument::Values() const
{
    if (!m_results)
        return {};
    const PrecResults& r = *m_results;
    return {{"mean"_L1, r.mean},   {"variance"_L1, r.variance}, {"s"_L1, r.s},         {"cv"_L1, r.cv},
            {"t"_L1, r.t},         {"gdl"_L1, r.gdl},           {"lower"_L1, r.lower}, {"upper"_L1, r.upper},
            {"width"_L1, r.width}, {"P"_L1, r.percent}};
}

bool PrecDocument::CalcPrec()
{
    Q_EMIT Pointer(true);
    const std::vector<double> values = Results();
    const auto results = CalcRepeatability(values);
    // Deliberate: a sum of 0 stops here without a word and with the hourglass on, which the menu's handler
    // takes back and the toolbar's does not.
    if (!results)
        return false;
    m_results = results;
    ShowConclusions(*results, CountOf(values));
    ShowResults(*results);
    Q_EMIT Changed();
    Q_EMIT Calculated();
    FillChart(*results);
    Q_EMIT ChartsChanged();
    Q_EMIT Pointer(false);
    return true;
}

void PrecDocument::ShowConclusions(const PrecResults& results, int count)
{
    const QStringList texts = {QString::number(count),
                               GeneralText(std::fabs(results.percent), Context().define.DecSep),
                               Shown(results.s)};
    for (const bool english : {true, false})
        m_conclText[english ? 1 : 0] = Heading(english) + u"\r\n"_s + FillTemplate(Template(english), texts);
    SetConclusions(m_conclText[0]);
}

void PrecDocument::ShowResults(const PrecResults& results)
{
    SetControlText("Media"_L1, Shown(results.mean));
    SetControlText("StDev"_L1, Shown(results.s));
    SetControlText("CV"_L1, Shown(results.cv));
    SetControlText("GdL"_L1, FormatNumber(results.gdl, u"##0", Context().define.DecSep));
    SetControlText("P"_L1, Shown(kP));
    SetControlText("T"_L1, Shown(results.t));
    SetControlText("InfConf"_L1, Shown(results.lower));
    SetControlText("SupConf"_L1, Shown(results.upper));
    SetControlText("IntConf"_L1, Shown(results.width));
}

void PrecDocument::FillChart(const PrecResults& results)
{
    m_chart.Clear();
    if (results.s == 0) {
        m_chart.title = u"Dev.standard = 0: grafico non disponibile"_s;
        m_chart.rows.assign(2, {0, 0});
        return;
    }
    // Deliberate: the curve spans the standard deviation that is shown, which may even read back as 0.
    const double shownS = TextToDouble(ControlText("StDev"_L1), Context().define.DecSep);
    const PrecCurve curve = PrecisionCurve(results.mean, results.s, shownS);
    m_chart.rows = curve.points;
    for (auto& row : m_chart.rows) {
        for (double& value : row)
            value = GeneralValue(value);
    }
    m_chart.y.scale = ChartScale{.minimum = 0, .maximum = curve.peak};
    m_chart.y.visible = false;
    m_chart.x.scale = ChartScale{.minimum = curve.first, .maximum = curve.last};
    m_chart.x.majorDivisions = kMajorDivisions;
    SetLanGraf(0);
}

void PrecDocument::SetLanGraf(int language)
{
    // Deliberate: a chart that can't be drawn keeps its one, Italian title.
    if (m_chart.IsEmpty() || !m_chart.x.scale)
        return;
    m_chart.title = language == 0 ? u"Precisione"_s : u"Precision"_s;
    m_chart.footnote = ChartFootnote(language);
    m_chart.x.title = language == 0 ? u"Curva di precisione"_s : u"Precision curve"_s;
    Q_EMIT ChartsChanged();
}

void PrecDocument::ResetResults()
{
    m_results.reset();
    for (const ResultField& field : ResultFields())
        SetControlText(field.control, field.control == "GdL"_L1 ? u"0"_s : Shown(0));
    SetConclusions(QString());
    m_chart.Clear();
    Q_EMIT ChartsChanged();
}

void PrecDocument::ReadLines(DataFileReader& reader)
{
    const FileHead head = ReadHead(reader);
    const QString nDet = TrimBlanks(ReadHeaderLines(reader, kHeaderLines)[kLineNDet]);
    SetControlText(kNDet, nDet);
    ReadResults(reader, nDet);
    SetGridNumFormat(head.digits);
}

void PrecDocument::WriteLines(DataFileWriter& writer) const
{
    WriteHead(writer, kFieldsInRow);
    writer.WriteNumber(0);
    writer.WriteText(ControlText(kNDet), u"N. determinazioni");
    WriteRows(writer, Grid());
}
