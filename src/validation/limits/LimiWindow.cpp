#include "validation/limits/LimiWindow.h"

#include "framework/document/ColumnDocument.h"

#include <QGridLayout>

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
    Fields().AddResults(
        layout, {{u"Label1"_s, {"StDev"_L1}},
                 {.labelName = u"LabelRil"_s, .controls = {"LimRil"_L1, "LimDet"_L1}, .onePlace = true}});
    // Whichever caption stands beside the limit, the fields keep their place.
    const QString longer = Document().Fields()["LimDet"_L1].caption;
    layout->setColumnMinimumWidth(0, box->fontMetrics().horizontalAdvance(longer));
    return box;
}
