#include "validation/limits/LimiWindow.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

LimiWindow::LimiWindow(std::unique_ptr<LimiDocument> document, Frame& frame)
    : TestWindow(std::move(document), frame), m_document(static_cast<LimiDocument&>(Document()))
{
    AddPage(InfoPage(), u"Info/Conclusioni"_s);
    AddPage(DataPage(), u"Dati"_s);
    Finish();
}

QWidget* LimiWindow::InfoPage()
{
    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    layout->addWidget(Fields().HeaderFields(u"LabelInfo"_s));
    QGroupBox* conclusions = Fields().ConclusionsFrame(u"Frame3"_s);
    Texts().Describe(conclusions, m_document.Context().define.DescConcl);
    layout->addWidget(conclusions, 1);
    return page;
}

QWidget* LimiWindow::DataPage()
{
    auto* page = new QWidget;
    auto* layout = new QHBoxLayout(page);
    QGroupBox* values = WindowFields::FrameBox(u"Frame5"_s, u"Risultati"_s);
    auto* valuesLayout = new QVBoxLayout(values);
    GridView* grid = Grid(m_document.Grid(), u"GridData"_s, u"Risultati"_s);
    grid->SetCorner(u"Dati"_s);
    valuesLayout->addWidget(grid);
    auto* left = new QVBoxLayout;
    left->addWidget(SizeFrame());
    left->addWidget(values, 1);
    auto* right = new QVBoxLayout;
    right->addWidget(ResultFrame());
    right->addStretch(1);
    layout->addLayout(left, 1);
    layout->addLayout(right, 1);
    return page;
}

QGroupBox* LimiWindow::SizeFrame()
{
    QGroupBox* box = WindowFields::FrameBox(u"Frame4"_s, u"Dimensioni"_s);
    Texts().Describe(box, {});
    QLineEdit* nDet = Fields().SizeEdit("nDet"_L1);
    QLabel* caption = WindowFields::FixedLabel(
        u"Label7"_s, u"N. di misure di una concentrazione (quantità) prossima al limite di "
                     "rilevabilità e del valore del bianco"_s);
    caption->setWordWrap(true);
    caption->setBuddy(nDet);
    auto* layout = new QGridLayout(box);
    layout->addWidget(caption, 0, 0);
    layout->addWidget(nDet, 0, 1);
    layout->addWidget(WindowFields::FixedLabel(u"Label20"_s, u"(min. 5)"_s), 0, 2);
    layout->setColumnStretch(0, 1);
    return box;
}

QGroupBox* LimiWindow::ResultFrame()
{
    QGroupBox* box = WindowFields::FrameBox(u"Frame2"_s, u"Risultato dell'elaborazione"_s);
    Texts().Describe(box, m_document.Context().define.DescResults);
    auto* layout = new QGridLayout(box);
    auto* group = new QButtonGroup(box);
    for (int i = 0; i < 2; ++i) {
        auto* button = new QRadioButton(LimiDocument::OptionCaption(i));
        button->setObjectName(u"OptionRilDet%1"_s.arg(i));
        group->addButton(button, i);
        layout->addWidget(button, i, 0, 1, 2);
        m_options[static_cast<std::size_t>(i)] = button;
    }
    connect(group, &QButtonGroup::idClicked, this,
            [this](int option) { Run([&] { m_document.ChooseOption(option); }); });

    const auto fields = m_document.ResultFields();
    layout->addWidget(WindowFields::FixedLabel(u"Label1"_s, fields[0].caption), 2, 0);
    layout->addWidget(Fields().ResultLabel(fields[0]), 2, 1);
    // The two limits share one place and one caption; one of them is seen.
    layout->addWidget(Fields().CaptionLabel("LabelRil"_L1), 3, 0);
    layout->addWidget(Fields().ResultLabel(fields[1]), 3, 1);
    layout->addWidget(Fields().ResultLabel(fields[2]), 3, 1);
    layout->setColumnStretch(1, 1);
    return box;
}

void LimiWindow::Refresh()
{
    TestWindow::Refresh();
    const auto option = m_document.Option();
    for (std::size_t i = 0; i < m_options.size(); ++i) {
        QRadioButton* button = m_options[i];
        // Neither is selected after a file whose flag is none: an exclusive group would refuse that.
        button->group()->setExclusive(option.has_value());
        button->setChecked(option == static_cast<int>(i));
    }
}
