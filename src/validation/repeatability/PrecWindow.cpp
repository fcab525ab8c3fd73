#include "validation/repeatability/PrecWindow.h"

#include <QGridLayout>

using namespace Qt::StringLiterals;

PrecWindow::PrecWindow(std::unique_ptr<PrecDocument> document, Frame& frame)
    : TestWindow(std::move(document), frame)
{
    AddPage(InfoPage(u"LblData"_s, u"Frame3"_s), u"Info/Conclusioni"_s);
    AddPage(DataPage(), u"Dati"_s);
    AddChartPages();
    Finish();
}

QWidget* PrecWindow::DataPage()
{
    QGroupBox* size = CountFrame(u"Frame2"_s, u"Dimensioni"_s,
                                 {.control = ColumnDocument::kNDet,
                                  .captionName = u"Label7"_s,
                                  .caption = u"N. determinazioni"_s,
                                  .minimumName = u"Label20"_s,
                                  .minimum = u"(min. 6)"_s});
    return TwoSides({size, GridFrame(u"Frame1"_s, u"Risultati"_s)}, {ResultFrame()});
}

QGroupBox* PrecWindow::ResultFrame()
{
    // The captions' names, in the order of the results; the three last stand under a heading of their own.
    static const std::array kLabels = {u"Label4"_s,  u"Label1"_s, u"Label13"_s, u"Label18"_s, u"Label30"_s,
                                       u"Label29"_s, u"Label5"_s, u"Label6"_s,  u"Label14"_s};
    static constexpr int kHeadingAbove = 6;
    QGroupBox* box = ResultBox(u"Frame4"_s);
    auto* layout = new QGridLayout(box);
    const auto fields = Document().ResultFields();
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (i == kHeadingAbove)
            layout->addWidget(WindowFields::FixedLabel(u"Label12"_s, u"Limiti di confidenza della media"_s),
                              layout->rowCount(), 0, 1, 2);
        const int row = layout->rowCount();
        layout->addWidget(WindowFields::FixedLabel(kLabels[i], fields[i].caption), row, 0);
        layout->addWidget(Fields().ResultLabel(fields[i]), row, 1);
    }
    layout->setColumnStretch(1, 1);
    return box;
}
