#include "validation/calibration/TaraWindow.h"

#include "framework/window/Forms.h"
#include "framework/window/GridView.h"
#include "validation/calibration/ConcentrationsDialog.h"
#include "validation/calibration/TaraDocument.h"

#include <QHeaderView>

using namespace Qt::StringLiterals;

TaraWindow::TaraWindow(std::unique_ptr<TestDocument> document, Frame& frame)
    : TestWindow(std::move(document), frame), m_tara(*qobject_cast<TaraDocument*>(&Document()))
{
    Pages().AddInfoPage(u"LblData"_s, u"Frame3"_s);
    Pages().AddDataPage({SizeFrame(), Pages().GridFrame(u"FrameConc"_s, u"FrameConc"_s)},
                        {DoseFrame(), LimitsFrame(), Pages().TableFrame(u"Frame5"_s, "SprLinearita"_L1)});
    Pages().AddChartPage(u"Grafici"_s);
    Pages().SetFirstPage(1);

    const GridView* view = Pages().View(0);
    Commands().Add({u"StrumentiConcentrazioni"_s, [this] { EditConcentrations(0); }});
    connect(view->horizontalHeader(), &QHeaderView::sectionDoubleClicked, this,
            [this](int col) { Commands().RunCommand([this, col] { EditConcentrations(col); }); });
}

QGroupBox* TaraWindow::SizeFrame()
{
    return Pages().SizeFrame(u"Frame1"_s, u"Dimensioni"_s,
                             {{TaraDocument::kGroups, u"Label7"_s, u"Label20"_s},
                              {TaraDocument::kReplicates, u"Label8"_s, u"Label21"_s},
                              {TaraDocument::kTotal, u"Label9"_s, {}}});
}

QGroupBox* TaraWindow::DoseFrame()
{
    QGridLayout* layout = nullptr;
    QGroupBox* box =
        Pages().ResultBox(u"Frame2"_s, layout, u"Risultato dell'elaborazione: RELAZIONE DOSE-RISPOSTA"_s);
    Fields().AddResults(
        layout, {{.labelName = u"Label1"_s, .controls = {"Regr"_L1}, .symbol = {u"Label11"_s, u"r ="_s}},
                 {.labelName = u"Label2"_s, .controls = {"CoeffA"_L1}, .symbol = {u"Label12"_s, u"a ="_s}},
                 {.labelName = u"Label3"_s, .controls = {"CoeffB"_L1}, .symbol = {u"Label13"_s, u"b ="_s}},
                 {.labelName = u"Label4"_s, .controls = {"Sa"_L1}, .symbol = {u"Label14"_s, u"Sa ="_s}},
                 {.labelName = u"Label5"_s, .controls = {"Sb"_L1}, .symbol = {u"Label15"_s, u"Sb ="_s}}});
    return box;
}

QGroupBox* TaraWindow::LimitsFrame()
{
    QGridLayout* layout = nullptr;
    QGroupBox* box = Pages().ResultBox(u"Frame4"_s, layout, u"Proporzionalità"_s);
    Fields().AddResults(layout, {{u"Label6"_s, {"ConfLim1"_L1}}, {u"Label10"_s, {"ConfLim2"_L1}}});
    return box;
}

void TaraWindow::EditConcentrations(int col)
{
    ConcentrationsDialog dialog(m_tara, col, Commands().AsGuard(), DialogParent(this));
    dialog.exec();
    GridView* view = Pages().View(0);
    if (view->isVisible())
        view->setFocus();
}
