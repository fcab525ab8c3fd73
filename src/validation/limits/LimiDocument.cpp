#include "validation/limits/LimiDocument.h"

#include "framework/text/Conclusions.h"
#include "framework/text/TextFunctions.h"

using namespace Qt::StringLiterals;

namespace
{

constexpr auto kStDev = "StDev"_L1;
constexpr auto kLimRil = "LimRil"_L1;
constexpr auto kLimDet = "LimDet"_L1;
constexpr auto kLabelRil = "LabelRil"_L1;

constexpr int kHeaderLines = 7;

// Places of the header lines behind the four header fields.
constexpr int kLineNDet = 5;
constexpr int kLineOption = 6;

QString Heading()
{
    return u"C O N V A L I D A  D E L   M E T O D O   A N A L I T I C O\r\n\r\n"
           "TEST LIMITI DI RILEVAZIONE / DETERMINAZIONE\r\n\r\n"_s;
}

/// #1# the unit, #2# the detection limit, #3# the quantitation limit. The wording is the required one.
std::array<QString, 4> Templates()
{
    return {
        u"LIMITE DI RILEVAZIONE\r\nLa più piccola concentrazione ( #1# ) dell'analita che può essere "
        "distinta dal bianco con il 95% di probabilità è pari a :\r\n\r\n#2#"_s,
        u"LIMITE DI DETERMINAZIONE\r\nLa più piccola concentrazione ( #1# ) dell'analita determinabile con "
        "accettabile precisione e accuratezza è pari a :\r\n\r\n#3#"_s,
        u"DETECTION LIMIT\r\nThe smallest concentration ( #1# ) of the analyte that it can be distinguished "
        "from the white reference with probability of 95% is :\r\n\r\n#2#"_s,
        u"QUANTITATION LIMIT\r\nThe smallest concentration ( #1# ) of the analyte determinable with "
        "acceptable precision and accuracy is :\r\n\r\n#3#"_s};
}

} // namespace

LimiDocument::LimiDocument(const DocumentContext& context) : ColumnDocument("LIMI", context, 5, u"10"_s)
{
    NewDocument();
}

QString LimiDocument::OptionCaption(int option)
{
    return option == 0 ? u"Limite di rilevazione"_s : u"Limite di determinazione"_s;
}

std::span<const ResultField> LimiDocument::ResultFields() const
{
    static const std::array kFields = {ResultField{kStDev, u"Dev. standard"_s},
                                       ResultField{kLimRil, OptionCaption(0)},
                                       ResultField{kLimDet, OptionCaption(1)}};
    return kFields;
}

bool LimiDocument::ControlVisible(QAnyStringView control) const
{
    if (control == kLimRil)
        return m_option == 0;
    if (control == kLimDet)
        return m_option == 1;
    return true;
}

QStringList LimiDocument::ConclText(bool english) const
{
    const std::size_t first = english ? 2 : 0;
    return {m_conclText[first], m_conclText[first + 1]};
}

std::vector<NamedValue> LimiDocument::Values() const
{
    if (!m_results)
        return {};
    return {{"s"_L1, m_results->s}, {"limRil"_L1, m_results->limRil}, {"limDet"_L1, m_results->limDet}};
}

void LimiDocument::SelectOption(std::optional<int> option)
{
    m_option = option;
    SetControlText(kLabelRil, option ? OptionCaption(*option) : QString());
}

/// The heading and the text of the selected limit; that of the quantitation limit where none is selected.
QString LimiDocument::ShownConclusions() const
{
    return Heading() + u"\r\n"_s + m_conclText[m_option == 0 ? 0 : 1];
}

void LimiDocument::ChooseOption(int option)
{
    SelectOption(option);
    SetConclusions(ShownConclusions());
    Q_EMIT Changed();
}

bool LimiDocument::CalcLimi()
{
    Q_EMIT Pointer(true);
    const auto results = CalcLimits(Results());
    // Deliberate: a sum of 0 stops here without a word and with the hourglass on, which the menu's handler
    // takes back and the toolbar's does not.
    if (!results)
        return false;

    m_results = results;
    const QStringList texts = {TrimBlanks(InputData(kUnitInput)), Shown(results->limRil),
                               Shown(results->limDet)};
    const auto templates = Templates();
    for (std::size_t i = 0; i < templates.size(); ++i)
        m_conclText[i] = FillTemplate(templates[i], texts);
    SetConclusions(ShownConclusions());
    SetControlText(kStDev, Shown(results->s));
    SetControlText(kLimRil, Shown(results->limRil));
    SetControlText(kLimDet, Shown(results->limDet));
    Q_EMIT Changed();
    Q_EMIT Calculated();
    Q_EMIT Pointer(false);
    return true;
}

void LimiDocument::ResetSizes()
{
    ColumnDocument::ResetSizes();
    SelectOption(0);
}

void LimiDocument::ResetResults()
{
    m_results.reset();
    for (const ResultField& field : ResultFields())
        SetControlText(field.control, Shown(0));
    SetConclusions(QString());
}

void LimiDocument::ReadLines(DataFileReader& reader)
{
    const FileHead head = ReadHead(reader);
    const QStringList lines = ReadHeaderLines(reader, kHeaderLines);
    const QString nDet = TrimBlanks(lines[kLineNDet]);
    // Deliberate: the literal that stands for a missing count is the caption of an option button.
    SetControlText(kNDet, nDet.isEmpty() ? OptionCaption(0) : nDet);
    if (lines[kLineOption] == "Vero"_L1)
        SelectOption(0);
    else if (lines[kLineOption] == "Falso"_L1)
        SelectOption(1);
    else
        SelectOption(std::nullopt);
    ReadResults(reader, nDet);
    SetGridNumFormat(head.digits);
}

void LimiDocument::WriteLines(DataFileWriter& writer) const
{
    WriteHead(writer, kFieldsInRow);
    writer.WriteNumber(0);
    writer.WriteText(ControlText(kNDet), u"N. di misure");
    // Deliberate: the flag tells that one of the two is selected, which is always so. A file reopens with the
    // detection limit, whichever was shown.
    writer.WriteText(u"Vero"_s, u"");
    WriteRows(writer, Grid());
}
