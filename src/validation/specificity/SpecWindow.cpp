#include "validation/specificity/SpecWindow.h"

#include "framework/window/Forms.h"
#include "validation/specificity/SpecDocument.h"

#include <QFontInfo>
#include <QGridLayout>

using namespace Qt::StringLiterals;

namespace
{
constexpr double kSmallType = 0.85;
} // namespace

SpecWindow::SpecWindow(std::unique_ptr<TestDocument> document, Frame& frame)
    : TestWindow(std::move(document), frame), m_spec(*qobject_cast<SpecDocument*>(&Document()))
{
    Pages().AddInfoPage(u"LblData"_s, u"Frame2"_s);
    QGroupBox* a = GroupFrame({u"Frame3"_s,
                               u"Gruppo A"_s,
                               {SpecDocument::kGruppoA, u"Label7"_s, u"Label20"_s},
                               u"Label1"_s,
                               u"presenza"_s,
                               u"Label3"_s});
    QGroupBox* b = GroupFrame({u"Frame4"_s,
                               u"Gruppo B"_s,
                               {SpecDocument::kGruppoB, u"Label22"_s, u"Label21"_s},
                               u"Label2"_s,
                               u"assenza"_s,
                               u"Label23"_s});
    Pages().AddDataPage({WindowPages::Beside({a, b}), Pages().GridFrame(u"Frame1"_s, u"Risultati"_s)},
                        {ResultFrame()});
    Pages().AddChartPage(u"Grafico"_s);
}

void SpecWindow::Activated()
{
    TestWindow::Activated();
    // Deliberate: where it is seen alone. On a page that is not in front the field would hold the focus
    // unseen, and keep it from what is seen.
    auto* field = findChild<QLineEdit*>(SpecDocument::kGruppoA);
    if (field->isVisible())
        field->setFocus();
}

QGroupBox* SpecWindow::GroupFrame(const GroupText& group)
{
    QGroupBox* box = Pages().SizeFrame(group.frame, group.title, {group.size});
    QLabel* word = FixedLabel(group.wordName, group.word);
    QFont bold = word->font();
    bold.setBold(true);
    word->setFont(bold);
    QLabel* sentence = FixedLabel(
        group.sentenceName,
        u"Risultati ottenuti nella determinazione dell'analita in %1 di altre sostanze (prodotti di degradazione, "
        "impurezze di sintesi, eccipienti, ...)"_s.arg(group.word));
    sentence->setWordWrap(true);
    QFont small = sentence->font();
    small.setPointSizeF(QFontInfo(small).pointSizeF() * kSmallType);
    sentence->setFont(small);
    auto* layout = qobject_cast<QGridLayout*>(box->layout());
    layout->addWidget(word, 1, 0, 1, 3);
    layout->addWidget(sentence, 2, 0, 1, 3);
    return box;
}

QGroupBox* SpecWindow::ResultFrame()
{
    QGridLayout* layout = nullptr;
    QGroupBox* box = Pages().ResultBox(u"Frame5"_s, layout);
    Fields().AddHeadings(layout, {{u"Label11"_s, u"Gruppo A"_s}, {u"Label16"_s, u"Gruppo B"_s}});
    Fields().AddResults(layout, {{u"Label4"_s, {"MediaA"_L1, "MediaB"_L1}, u"Media"_s},
                                 {u"Label12"_s, {}, u"Limiti di confidenza della media"_s},
                                 {u"Label5"_s, {"InfConfA"_L1, "InfConfB"_L1}, u"Inferiore"_s},
                                 {u"Label6"_s, {"SupConfA"_L1, "SupConfB"_L1}, u"Superiore"_s},
                                 {u"Label14"_s, {"SA"_L1, "SB"_L1}, u"s²"_s},
                                 {u"Label13"_s, {"F"_L1}},
                                 {u"Label18"_s, {"GdL"_L1}},
                                 {u"Label29"_s, {"T"_L1}},
                                 {u"Label30"_s, {"P"_L1}}});
    Fields().AddVerdict(layout, "Giudizio"_L1, [this] { return Sign(); });
    return box;
}

VerdictSign::Kind SpecWindow::Sign() const
{
    const auto& results = m_spec.Numbers();
    if (!results)
        return VerdictSign::Kind::None;
    if (results->NotDeterminable())
        return VerdictSign::Kind::Open;
    return results->Significant() ? VerdictSign::Kind::Bad : VerdictSign::Kind::Good;
}
