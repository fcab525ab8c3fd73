#include "validation/limits/LimiWindow.h"

#include <QButtonGroup>
#include <QFontMetrics>
#include <QGridLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

LimiWindow::LimiWindow(std::unique_ptr<LimiDocument> document, Frame& frame)
    : TestWindow(std::move(document), frame), m_document(static_cast<LimiDocument&>(Document()))
{
    AddPage(InfoPage(u"LabelInfo"_s, u"Frame3"_s), u"Info/Conclusioni"_s);
    AddPage(DataPage(), u"Dati"_s);
    Finish();
}

QWidget* LimiWindow::DataPage()
{
    QGroupBox* size =
        CountFrame(u"Frame4"_s, u"Dimensioni"_s,
                   {.control = ColumnDocument::kNDet,
                    .captionName = u"Label7"_s,
                    .caption = u"N. di misure di una concentrazione (quantità) prossima al limite di "
                               "rilevabilità e del valore del bianco"_s,
                    .minimumName = u"Label20"_s,
                    .minimum = u"(min. 5)"_s});
    return TwoSides({size, GridFrame(u"Frame5"_s, u"Risultati"_s)}, {ResultFrame()});
}

QGroupBox* LimiWindow::ResultFrame()
{
    QGroupBox* box = ResultBox(u"Frame2"_s);
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
    // Whichever caption stands there, the fields keep their place.
    const QFontMetrics metrics(box->font());
    layout->setColumnMinimumWidth(0, std::max(metrics.horizontalAdvance(fields[1].caption),
                                              metrics.horizontalAdvance(fields[2].caption)));
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
