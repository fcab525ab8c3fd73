#include "validation/limits/LimiDocument.h"

#include "framework/text/TextFunctions.h"
#include "validation/limits/LimiTexts.h"

using namespace Qt::StringLiterals;

namespace
{

const DocumentShape& LimiShape()
{
    static const DocumentShape kShape = {
        .key = "LIMI"_L1,
        .digits = {.interi = 3, .decimali = 3},
        .sizes =
            {{.control = ColumnDocument::kNDet,
              .caption =
                  u"N. di misure di una concentrazione (quantità) prossima al limite di rilevabilità e del "
                  "valore del bianco"_s,
              .initial = u"10"_s,
              .minimum = 5,
              .rowsOf = SizeField::kAllColumns}},
        .options = {{"OptionRilDet0"_L1, u"Limite di rilevazione"_s, 0},
                    {"OptionRilDet1"_L1, u"Limite di determinazione"_s, 1}},
        .optionsShow = true,
        .fields = {{"StDev"_L1, FieldKind::Result, u"Dev. standard"_s},
                   {"LimRil"_L1, FieldKind::Result, u"Limite di rilevazione"_s},
                   {"LimDet"_L1, FieldKind::Result, u"Limite di determinazione"_s},
                   {"LabelRil"_L1, FieldKind::Caption, {}}},
        .lines = {{FileLine::Kind::Reserved},
                  {FileLine::Kind::Text, ColumnDocument::kNDet, u"N. di misure"_s},
                  {FileLine::Kind::Own, "OptionRilDet"_L1}},
        .conclusions = 2,
    };
    return kShape;
}

} // namespace

LimiDocument::LimiDocument(const DocumentContext& context) : ColumnDocument(LimiShape(), context) {}

std::vector<NamedValue> LimiDocument::Values() const
{
    if (!m_results)
        return {};
    return {{"s"_L1, m_results->s}, {"limRil"_L1, m_results->limRil}, {"limDet"_L1, m_results->limDet}};
}

void LimiDocument::ResetOwn()
{
    ColumnDocument::ResetOwn();
    SelectOption(0);
}

void LimiDocument::ShowOption()
{
    const auto option = Option();
    SetControlText("LabelRil"_L1, option ? OptionCaption(*option) : QString());
    SetControlVisible("LimRil"_L1, option == 0);
    SetControlVisible("LimDet"_L1, option == 1);
}

/// The text of the selected limit; that of the quantitation limit where none is selected.
void LimiDocument::OptionChosen()
{
    SetConclusions(LimiOnScreen(ConclText(Language::Italian)[Option() == 0 ? 0 : 1]));
}

CalcEnd LimiDocument::CalcTest()
{
    const auto results = CalcLimi(Results());
    if (!results)
        return CalcEnd::SumIsZero;
    m_results = results;
    SetControlText("StDev"_L1, Shown(results->s));
    SetControlText("LimRil"_L1, Shown(results->limRil));
    SetControlText("LimDet"_L1, Shown(results->limDet));
    const auto texts = [&](Language language) {
        return LimiConclusions(language, TrimBlanks(InputData(kUnitInput)), ControlText("LimRil"_L1),
                               ControlText("LimDet"_L1));
    };
    SetConclText({texts(Language::Italian), texts(Language::English)});
    OptionChosen();
    return CalcEnd::Done;
}

void LimiDocument::ReadOwnLine(QLatin1StringView /*control*/, const QString& text)
{
    SelectOption(text == "Vero"_L1 ? std::optional(0) : text == "Falso"_L1 ? std::optional(1) : std::nullopt);
}

/// Deliberate: the flag tells that one of the two is selected, which is always so. A file reopens with the
/// detection limit, whichever was shown.
QString LimiDocument::WriteOwnLine(QLatin1StringView /*control*/) const
{
    return u"Vero"_s;
}

void LimiDocument::ReadBody(DataFileReader& reader, int fieldCount)
{
    // Deliberate: the literal that stands for a missing count is the caption of an option button.
    if (ControlText(kNDet).isEmpty())
        SetControlText(kNDet, OptionCaption(0));
    ColumnDocument::ReadBody(reader, fieldCount);
}
