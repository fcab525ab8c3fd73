#include "validation/repeatability/PrecDocument.h"

#include "framework/document/Define.h"
#include "framework/text/NumberText.h"
#include "stats/CriticalValues.h"
#include "validation/repeatability/PrecTexts.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace
{

/// One minor division in each: no marks between.
constexpr int kMajorDivisions = 4;

const DocumentShape& PrecShape()
{
    static const DocumentShape kShape = {
        .key = "PREC"_L1,
        .inputs = 3,
        .digits = {.interi = 3, .decimali = 3},
        // Deliberate: the caption tells another minimum than the one that holds.
        .sizes = {{.control = ColumnDocument::kNDet,
                   .caption = u"N. determinazioni"_s,
                   .initial = u"6"_s,
                   .minimum = 3,
                   .shownMinimum = 6,
                   .rowsOf = SizeField::kAllColumns}},
        .fields = {{"Media"_L1, FieldKind::Result, u"Media"_s},
                   {"StDev"_L1, FieldKind::Result, u"Dev. standard"_s},
                   {"CV"_L1, FieldKind::Result, u"CV"_s},
                   {"GdL"_L1, FieldKind::Result, u"GdL"_s, u"0"_s},
                   {"P"_L1, FieldKind::Result, u"P"_s},
                   {"T"_L1, FieldKind::Result, u"t (p;n-1)"_s},
                   {"InfConf"_L1, FieldKind::Result, u"Inferiore"_s},
                   {"SupConf"_L1, FieldKind::Result, u"Superiore"_s},
                   {"IntConf"_L1, FieldKind::Result, u"Intervallo di Confidenza"_s}},
        .lines = {{FileLine::Kind::Reserved},
                  {FileLine::Kind::Text, ColumnDocument::kNDet, u"N. determinazioni"_s}},
        .charts = {{"VtGrafPrec"_L1}},
    };
    return kShape;
}

} // namespace

PrecDocument::PrecDocument(const DocumentContext& context) : ColumnDocument(PrecShape(), context) {}

std::vector<NamedValue> PrecDocument::Values() const
{
    if (!m_results)
        return {};
    const PrecResults& r = *m_results;
    return {{"mean"_L1, r.mean},   {"variance"_L1, r.variance},
            {"s"_L1, r.s},         {"cv"_L1, r.cv},
            {"t"_L1, r.t},         {"gdl"_L1, static_cast<double>(r.gdl)},
            {"lower"_L1, r.lower}, {"upper"_L1, r.upper},
            {"width"_L1, r.width}, {"P"_L1, r.percent}};
}

void PrecDocument::ForgetNumbers()
{
    m_results.reset();
    m_curve.reset();
}

CalcEnd PrecDocument::CalcTest()
{
    const std::vector<double> values = Results();
    const auto results = CalcPrec(values);
    if (!results)
        return CalcEnd::SumIsZero;
    m_results = results;
    ShowResults(*results);
    const QString percent = GeneralText(std::fabs(results->percent), Context().define.DecSep);
    const auto text = [&](Language language) {
        return PrecConclusions(language, static_cast<int>(values.size()), percent, ControlText("StDev"_L1));
    };
    Conclude({text(Language::Italian), text(Language::English)});
    return CalcEnd::Done;
}

void PrecDocument::ShowResults(const PrecResults& results)
{
    SetControlText("Media"_L1, Shown(results.mean));
    SetControlText("StDev"_L1, Shown(results.s));
    SetControlText("CV"_L1, Shown(results.cv));
    SetControlText("GdL"_L1, ShownCount(results.gdl));
    SetControlText("P"_L1, Shown(kAlpha));
    SetControlText("T"_L1, Shown(results.t));
    SetControlText("InfConf"_L1, Shown(results.lower));
    SetControlText("SupConf"_L1, Shown(results.upper));
    SetControlText("IntConf"_L1, Shown(results.width));
}

void PrecDocument::CalcCharts()
{
    m_curve.reset();
    // Deliberate: the curve spans the standard deviation that is shown, which may even read back as 0.
    if (m_results->s != 0)
        m_curve = PrecisionCurve(m_results->mean, m_results->s, ShownNumber("StDev"_L1));
}

ChartData PrecDocument::Chart(std::size_t index, Language language) const
{
    ChartData chart = TestDocument::Chart(index, language);
    if (m_results && m_results->s == 0) {
        // Deliberate: a chart that can't be drawn has its one, Italian title.
        chart.title = u"Dev.standard = 0: grafico non disponibile"_s;
        chart.rows.assign(2, {0, 0});
    }
    if (!m_curve)
        return chart;
    static const InBoth<QString> kTitle = {u"Precisione"_s, u"Precision"_s};
    static const InBoth<QString> kXTitle = {u"Curva di precisione"_s, u"Precision curve"_s};
    chart.title = kTitle[language];
    chart.footnote = ChartFootnote(language);
    chart.rows = m_curve->points;
    for (auto& row : chart.rows) {
        for (double& value : row)
            value = GeneralValue(value);
    }
    chart.y.scale = ChartScale{.minimum = 0, .maximum = m_curve->peak};
    chart.y.visible = false;
    chart.x = {.title = kXTitle[language],
               .scale = ChartScale{.minimum = m_curve->first, .maximum = m_curve->last},
               .majorDivisions = kMajorDivisions};
    return chart;
}
