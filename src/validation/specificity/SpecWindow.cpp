#include "validation/specificity/SpecWindow.h"

#include <QGridLayout>

using namespace Qt::StringLiterals;

SpecWindow::SpecWindow(std::unique_ptr<SpecDocument> document, Frame& frame)
    : TestWindow(std::move(document), frame)
{
    AddPage(InfoPage(u"LblData"_s, u"Frame2"_s), u"Info/Conclusioni"_s);
    AddPage(DataPage(), u"Dati"_s);
    AddChartPages();
    Finish();
}

void SpecWindow::Activated()
{
    // On a page that is not in front the field would hold the focus unseen, and keep it from what is seen.
    auto* field = findChild<QLineEdit*>(SpecDocument::kGruppoA);
    if (field->isVisible())
        field->setFocus();
    TestWindow::Activated();
}

QGroupBox* SpecWindow::GroupFrame(const GroupText& group)
{
    QGroupBox* box = CountFrame(group.frame, group.title,
                                {.control = group.control,
                                 .captionName = group.captionName,
                                 .caption = u"N. determinazioni"_s,
                                 .minimumName = group.minimumName,
                                 .minimum = u"(min. 5)"_s});
    QLabel* word = WindowFields::FixedLabel(group.wordName, group.word);
    QFont bold = word->font();
    bold.setBold(true);
    word->setFont(bold);
    QLabel* sentence = WindowFields::FixedLabel(
        group.sentenceName,
        u"Risultati ottenuti nella determinazione dell'analita in %1 di altre sostanze (prodotti di degradazione, "
        "impurezze di sintesi, eccipienti, ...)"_s.arg(group.word));
    sentence->setWordWrap(true);
    auto* layout = qobject_cast<QGridLayout*>(box->layout());
    layout->addWidget(word, 1, 0, 1, 3);
    layout->addWidget(sentence, 2, 0, 1, 3);
    return box;
}

QWidget* SpecWindow::DataPage()
{
    QGroupBox* a = GroupFrame({.control = SpecDocument::kGruppoA,
                               .frame = u"Frame3"_s,
                               .title = u"Gruppo A"_s,
                               .captionName = u"Label7"_s,
                               .minimumName = u"Label20"_s,
                               .wordName = u"Label1"_s,
                               .word = u"presenza"_s,
                               .sentenceName = u"Label3"_s});
    QGroupBox* b = GroupFrame({.control = SpecDocument::kGruppoB,
                               .frame = u"Frame4"_s,
                               .title = u"Gruppo B"_s,
                               .captionName = u"Label22"_s,
                               .minimumName = u"Label21"_s,
                               .wordName = u"Label2"_s,
                               .word = u"assenza"_s,
                               .sentenceName = u"Label23"_s});
    return TwoSides({a, b, GridFrame(u"Frame1"_s, u"Risultati"_s)}, {ResultFrame()});
}

QGroupBox* SpecWindow::ResultFrame()
{
    QGroupBox* box = ResultBox(u"Frame5"_s);
    auto* layout = new QGridLayout(box);
    const auto label = [](const QString& name, const QString& text) {
        return WindowFields::FixedLabel(name, text);
    };
    layout->addWidget(label(u"Label11"_s, u"Gruppo A"_s), 0, 1, Qt::AlignRight);
    layout->addWidget(label(u"Label16"_s, u"Gruppo B"_s), 0, 2, Qt::AlignRight);
    const auto fields = Document().ResultFields();
    std::size_t next = 0;
    // One result a group, side by side.
    const auto addPair = [&](int row, const QString& name, const QString& caption) {
        layout->addWidget(label(name, caption), row, 0);
        layout->addWidget(Fields().ResultLabel(fields[next++]), row, 1);
        layout->addWidget(Fields().ResultLabel(fields[next++]), row, 2);
    };
    addPair(1, u"Label4"_s, u"Media"_s);
    layout->addWidget(label(u"Label12"_s, u"Limiti di confidenza della media"_s), 2, 0, 1, 3);
    addPair(3, u"Label5"_s, u"Inferiore"_s);
    addPair(4, u"Label6"_s, u"Superiore"_s);
    addPair(5, u"Label14"_s, u"s²"_s);
    static const std::array kCaptions = {std::pair{u"Label13"_s, u"F"_s}, std::pair{u"Label18"_s, u"GdL"_s},
                                         std::pair{u"Label29"_s, u"t"_s}, std::pair{u"Label30"_s, u"P"_s}};
    int row = 6;
    for (const auto& [name, caption] : kCaptions) {
        layout->addWidget(label(name, caption), row, 0);
        layout->addWidget(Fields().ResultLabel(fields[next++]), row++, 1);
    }
    QLabel* verdict = Fields().ResultLabel(fields[next]);
    verdict->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    verdict->setWordWrap(true);
    layout->addWidget(verdict, row, 0, 1, 3);
    layout->setColumnStretch(1, 1);
    layout->setColumnStretch(2, 1);
    return box;
}
