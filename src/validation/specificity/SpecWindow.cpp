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

/// explanation: name and text of the word in front, name and text of the sentence.
QGroupBox* SpecWindow::GroupFrame(const QString& frameName, const QString& title, const CountField& field,
                                  const std::array<QString, 4>& explanation)
{
    QGroupBox* box = CountFrame(frameName, title, field);
    auto* layout = qobject_cast<QGridLayout*>(box->layout());
    QLabel* word = WindowFields::FixedLabel(explanation[0], explanation[1]);
    QFont bold = word->font();
    bold.setBold(true);
    word->setFont(bold);
    QLabel* sentence = WindowFields::FixedLabel(explanation[2], explanation[3]);
    sentence->setWordWrap(true);
    layout->addWidget(word, 1, 0, 1, 3);
    layout->addWidget(sentence, 2, 0, 1, 3);
    return box;
}

QWidget* SpecWindow::DataPage()
{
    QGroupBox* a =
        GroupFrame(u"Frame3"_s, u"Gruppo A"_s,
                   {.control = SpecDocument::kGruppoA,
                    .captionName = u"Label7"_s,
                    .caption = u"N. determinazioni"_s,
                    .minimumName = u"Label20"_s,
                    .minimum = u"(min. 5)"_s},
                   {u"Label1"_s, u"presenza"_s, u"Label3"_s,
                    u"Risultati ottenuti nella determinazione dell'analita in presenza di altre sostanze "
                    "(prodotti di degradazione, impurezze di sintesi, eccipienti, ...)"_s});
    QGroupBox* b =
        GroupFrame(u"Frame4"_s, u"Gruppo B"_s,
                   {.control = SpecDocument::kGruppoB,
                    .captionName = u"Label22"_s,
                    .caption = u"N. determinazioni"_s,
                    .minimumName = u"Label21"_s,
                    .minimum = u"(min. 5)"_s},
                   {u"Label2"_s, u"assenza"_s, u"Label23"_s,
                    u"Risultati ottenuti nella determinazione dell'analita in assenza di altre sostanze "
                    "(prodotti di degradazione, impurezze di sintesi, eccipienti, ...)"_s});
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
