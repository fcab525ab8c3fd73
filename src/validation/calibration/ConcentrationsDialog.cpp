#include "validation/calibration/ConcentrationsDialog.h"

#include "framework/document/Define.h"
#include "framework/window/EditCommands.h"
#include "framework/window/Forms.h"
#include "framework/window/GridNotices.h"
#include "framework/window/GridView.h"
#include "framework/window/NoticeBar.h"
#include "validation/calibration/TaraDocument.h"

#include <QHeaderView>
#include <QMenu>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{
constexpr int kMostRowsShown = 6;
constexpr int kLeastRowsShown = 3;
/// Of a notice: in characters, in lines, and the points around them.
constexpr int kNoticeWidth = 56;
constexpr int kNoticeLines = 3;
constexpr int kNoticeMargins = 8;
} // namespace

ConcentrationsDialog::ConcentrationsDialog(TaraDocument& document, int col, Guard guard, QWidget* parent)
    : QDialog(parent), m_document(document), m_guard(std::move(guard))
{
    setObjectName(u"WConc"_s);
    setWindowTitle(u"Concentrazioni"_s);
    GridView* view = MakeView(col);
    auto* bar = new NoticeBar;
    Watch(view, bar);
    // The room of a notice is kept for it: the dialog doesn't jump.
    bar->setMinimumHeight(fontMetrics().lineSpacing() * kNoticeLines + kNoticeMargins);
    QSizePolicy policy = bar->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    bar->setSizePolicy(policy);

    QPushButton* ok = NewButton(u"PushOk"_s, u"&OK"_s);
    ok->setDefault(true);
    QPushButton* cancel = NewButton(u"PushAnnulla"_s, u"Annulla"_s);
    connect(ok, &QPushButton::clicked, this, [this, view] { m_guard([this, view] { Store(view); }); });
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(view, &GridView::WalkEnded, this,
            [ok, cancel](bool forward) { (forward ? ok : cancel)->setFocus(Qt::TabFocusReason); });
    auto* body = new QWidget;
    auto* layout = new QVBoxLayout(body);
    layout->addStrut(fontMetrics().averageCharWidth() * kNoticeWidth);
    QLabel* caption = FixedLabel(u"LabelConc"_s, m_document.ControlText("FrameConc"));
    caption->setBuddy(view);
    layout->addWidget(caption);
    layout->addWidget(view, 1);
    layout->addWidget(bar);
    BuildForm(this, body, ButtonRow({ok, cancel}));
    view->setFocus();
}

GridView* ConcentrationsDialog::MakeView(int col)
{
    auto* grid = new DataGrid(m_document.Context().define.DecSep, this);
    const int count = m_document.Grid().Cols();
    grid->SetSize(count, 1);
    grid->SetDigits(m_document.ConcDigits());
    grid->SetGrouped(true);
    grid->SetColumnHeader(0, u"Valori"_s);
    for (int row = 0; row < count; ++row)
        grid->SetValue(row, 0, m_document.Concentration(row));

    auto* view = new GridView(*grid, u"GridConc"_s, u"Concentrazioni"_s);
    const int around = view->horizontalHeader()->height() + 2 * view->frameWidth();
    const int height = view->verticalHeader()->defaultSectionSize();
    view->setMinimumHeight(around + height * kLeastRowsShown);
    view->setMaximumHeight(around + height * kMostRowsShown);
    view->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    view->setVerticalScrollBarPolicy(count > kMostRowsShown ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
    view->horizontalHeader()->setStretchLastSection(true);
    if (count > 0)
        view->setCurrentIndex(grid->index(std::min(col, count - 1), 0));
    view->SetPopup(MakePopup(view));
    return view;
}

QMenu* ConcentrationsDialog::MakePopup(GridView* view)
{
    auto* menu = new QMenu(this);
    const auto add = [&](const QString& caption, void (*command)(QWidget*)) {
        menu->addAction(caption, view, [this, view, command] { m_guard([&] { command(view); }); });
    };
    add(u"&Taglia"_s, EditCut);
    add(u"&Copia"_s, EditCopy);
    add(u"&Incolla"_s, EditPaste);
    add(u"Ca&ncella"_s, EditClear);
    return menu;
}

void ConcentrationsDialog::Watch(GridView* view, NoticeBar* bar)
{
    GridEdits& edits = view->Grid().Edits();
    connect(view, &GridView::Refused, this, [view, bar](const QString& text) {
        bar->Show({NoticeCause::Cell, RefusalNotice(*view, text)});
    });
    connect(view, &GridView::RefusalPast, this, [bar] { bar->End(NoticeCause::Cell); });
    connect(view, &GridView::Pasted, this, [bar](const PasteCount& count) {
        bar->End(NoticeCause::Paste);
        if (!count.Plain())
            bar->Show({NoticeCause::Paste, PasteNotice(count)});
    });
    connect(view, &GridView::TurnAsked, this, [this, bar, &edits](bool forward) {
        bar->End(NoticeCause::Paste);
        m_guard([&] { forward ? edits.Steps().Redo() : edits.Steps().Undo(); });
    });
    connect(view, &GridView::Dropped, this, [this, view, &edits](const GridBlock& from, int row, int col) {
        m_guard([&] { DropBlock(*view, edits, from, row, col, m_document.Context()); });
    });
    connect(bar, &NoticeBar::Left, view, qOverload<>(&QWidget::setFocus));
}

void ConcentrationsDialog::Store(GridView* view)
{
    if (!view->CommitEditor())
        return;
    QStringList texts;
    for (int row = 0; row < view->Grid().Rows(); ++row)
        texts.append(view->Grid().Text(row, 0));
    // Deliberate: the document's own flag stays. The grid's tells that something was changed, so that closing
    // asks.
    m_document.Grid().Edits().SetHeaders(texts);
    accept();
}
