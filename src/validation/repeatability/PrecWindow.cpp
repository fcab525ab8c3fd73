#include "validation/repeatability/PrecWindow.h"

#include "framework/document/ColumnDocument.h"

using namespace Qt::StringLiterals;

PrecWindow::PrecWindow(std::unique_ptr<TestDocument> document, Frame& frame)
    : TestWindow(std::move(document), frame)
{
    Pages().AddInfoPage(u"LblData"_s, u"Frame3"_s);
    Pages().AddDataPage({Pages().SizeFrame(u"Frame2"_s, u"Dimensioni"_s,
                                           {{ColumnDocument::kNDet, u"Label7"_s, u"Label20"_s}}),
                         Pages().GridFrame(u"Frame1"_s, u"Risultati"_s)},
                        {ResultFrame()});
    Pages().AddChartPage(u"Grafico"_s);
}

QGroupBox* PrecWindow::ResultFrame()
{
    QGridLayout* layout = nullptr;
    QGroupBox* box = Pages().ResultBox(u"Frame4"_s, layout);
    Fields().AddResults(layout, {{u"Label4"_s, {"Media"_L1}},
                                 {u"Label1"_s, {"StDev"_L1}},
                                 {u"Label13"_s, {"CV"_L1}},
                                 {u"Label18"_s, {"GdL"_L1}},
                                 {u"Label30"_s, {"P"_L1}},
                                 {u"Label29"_s, {"T"_L1}},
                                 {u"Label12"_s, {}, u"Limiti di confidenza della media"_s},
                                 {u"Label5"_s, {"InfConf"_L1}},
                                 {u"Label6"_s, {"SupConf"_L1}},
                                 {u"Label14"_s, {"IntConf"_L1}}});
    return box;
}
