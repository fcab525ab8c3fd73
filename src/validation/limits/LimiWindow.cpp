#include "validation/limits/LimiWindow.h"

#include "framework/document/ColumnDocument.h"

#include <QGridLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

LimiWindow::LimiWindow(std::unique_ptr<TestDocument> document, Frame& frame)
    : TestWindow(std::move(document), frame)
{
    Pages().AddInfoPage(u"LabelInfo"_s, u"Frame3"_s);
    Pages().AddDataPage({Pages().SizeFrame(u"Frame4"_s, u"Dimensioni"_s,
                                           {{ColumnDocument::kNDet, u"Label7"_s, u"Label20"_s}}),
                         Pages().GridFrame(u"Frame5"_s, u"Risultati"_s)},
                        {ResultFrame()});
}

QGroupBox* LimiWindow::ResultFrame()
{
    QGridLayout* layout = nullptr;
    QGroupBox* box = Pages().ResultBox(u"Frame2"_s, layout);
    Fields().AddOptions(layout, 2);
    Fields().AddResults(layout, {{u"Label1"_s, {"StDev"_L1}}});
    // The two limits share one place and one caption; one of them is seen. Whichever caption stands there,
    // the fields keep their place.
    const int row = layout->rowCount();
    layout->addWidget(Fields().FieldLabel("LabelRil"_L1), row, 0);
    for (const QLatin1StringView limit : {"LimRil"_L1, "LimDet"_L1}) {
        layout->addWidget(Fields().ResultLabel(limit), row, 1);
        const int width = box->fontMetrics().horizontalAdvance(Document().Fields()[limit].caption);
        layout->setColumnMinimumWidth(0, std::max(layout->columnMinimumWidth(0), width));
    }
    return box;
}
