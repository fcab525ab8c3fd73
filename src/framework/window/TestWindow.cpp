#include "framework/window/TestWindow.h"

#include "framework/document/DocumentLife.h"
#include "framework/window/ChartNotice.h"
#include "framework/window/Forms.h"
#include "framework/window/Furnishings.h"
#include "framework/window/GridView.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCloseEvent>
#include <QGroupBox>
#include <QIcon>
#include <QLabel>
#include <QPainter>
#include <QShortcut>
#include <QTabBar>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <functional>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{

constexpr int kPanelCharacters = 160;
/// Room on the pages for longer numbers than those of a new document.
constexpr int kMoreCharacters = 12;

/// A menu that closes over a button leaves it raised, and the mouse then goes away from it unnoticed.
void LowerButtons(const QToolBar* toolbar)
{
    for (QToolButton* button : toolbar->findChildren<QToolButton*>()) {
        if (!button->underMouse())
            continue;
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(button, &leave);
    }
}

} // namespace

TestWindow::TestWindow(std::unique_ptr<TestDocument> document, Frame& frame)
    : m_document(std::move(document)),
      m_commands(new WindowCommands(*this, *m_document, frame)),
      m_fields(new WindowFields(*m_document, m_commands->AsGuard(), this)),
      m_descriptions(new Descriptions(this)),
      m_notices(new NoticeBar),
      m_gridNotices(new GridNotices(
          *m_document, [this](const auto& event) { m_commands->RunCommand(event); }, *m_notices, this)),
      m_pages(std::make_unique<WindowPages>(*m_document, *m_fields, *m_descriptions, *m_commands,
                                            *m_gridNotices)),
      m_panels(new StatusPanels(m_document->Info(), frame))
{
    setObjectName(m_document->Info().windowClass);
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowIcon(QIcon(u":/toolbar/Program.svg"_s));
    FurnishPalette(this);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 4, 6, 2);
    layout->setSpacing(4);
    layout->addWidget(m_commands->Toolbar());
    layout->addWidget(m_pages.get(), 1);
    layout->addWidget(m_notices);
    layout->addWidget(m_panels);
    m_commands->SetSizes(m_fields->Sizes());
    MakeKeys();
    m_pages->GetRegions().Add(Region::Notice, m_notices);
    connect(m_notices, &NoticeBar::Left, this, &TestWindow::FocusLast);

    connect(m_document.get(), &TestDocument::Changed, this, &TestWindow::Refresh);
    connect(m_document.get(), &TestDocument::Calculated, this, &TestWindow::CaptionToToolTip);
    connect(m_document.get(), &TestDocument::Pointer, this, [this](bool hourglass) {
        if (hourglass)
            setCursor(Qt::WaitCursor);
        else
            unsetCursor();
    });
    connect(m_panels, &StatusPanels::StatusDoubleClicked, this,
            [this] { m_commands->RunCommand([this] { m_commands->StrumentiSetup(); }); });
    connect(m_descriptions, &Descriptions::Hovered, m_panels, &StatusPanels::SetDescription);
    connect(m_document.get(), &TestDocument::Renewed, this, [this] {
        for (const auto cause : {NoticeCause::Size, NoticeCause::Cell, NoticeCause::Paste})
            m_notices->End(cause);
    });
    connect(&m_fields->Sizes(), &SizeFields::Refused, this, [this](const QString& text) {
        if (text.isEmpty())
            m_notices->End(NoticeCause::Size);
        else
            m_notices->Show({NoticeCause::Size, text});
    });
    connect(m_commands, &WindowCommands::Ran, this, [this] {
        ShowState();
        // Once a menu that was opened is gone.
        const auto lower = [this] { LowerButtons(m_commands->Toolbar()); };
        QMetaObject::invokeMethod(this, lower, Qt::QueuedConnection);
    });
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { NoteFocus(now); });
}

TestWindow::~TestWindow()
{
    disconnect(qApp, nullptr, this, nullptr); // of the focus that moves on among the pieces that go
    m_pages.reset();
}

void TestWindow::Finish()
{
    m_commands->Build();
    m_pages->ShowFirstPage();
    m_notices->ComeBehind(m_pages->LastInTabOrder());
    m_descriptions->Watch();
    Refresh();
}

QSize TestWindow::sizeHint() const
{
    const QSize pages = m_pages->PagesHint();
    const QSize toolbar = m_commands->Toolbar()->sizeHint();
    const int around =
        m_pages->tabBar()->sizeHint().height() + toolbar.height() + m_panels->sizeHint().height() + 40;
    // Wide enough for the panels' usual texts, too.
    const int panels = fontMetrics().averageCharWidth() * kPanelCharacters;
    const int more = fontMetrics().averageCharWidth() * kMoreCharacters;
    return {std::max({pages.width() + more + 40, toolbar.width(), panels}), pages.height() + around};
}

void TestWindow::Refresh()
{
    setWindowTitle(TitleOf(m_document->Title()));
    m_fields->Refresh();
    m_pages->Refresh();
    m_panels->SetStatus(m_document->FormatText());
    ShowState();
}

void TestWindow::ShowState()
{
    m_panels->SetModified(HasChanges());
    m_panels->SetStale(m_document->Results() == ResultState::Stale);
    m_gridNotices->StepMade();
    ShowOnce(NoticeCause::Reading, m_document->ReadNotice());
    const bool current = m_document->Results() == ResultState::Current;
    ShowOnce(NoticeCause::Results, current ? m_document->ResultNotice() : QString());
    ShowOnce(NoticeCause::Deed, m_document->DeedNotice());
}

/// A notice that was closed does not come back.
void TestWindow::ShowOnce(NoticeCause cause, const QString& text)
{
    if (text == std::exchange(m_told[cause], text))
        return;
    if (text.isEmpty())
        m_notices->End(cause);
    else
        m_notices->Show({cause, text});
}

void TestWindow::MakeKeys()
{
    const auto add = [this](const QString& keys, const std::function<void()>& run) {
        auto* shortcut = new QShortcut(QKeySequence(keys), this);
        shortcut->setContext(Qt::WidgetWithChildrenShortcut);
        connect(shortcut, &QShortcut::activated, this, run);
    };
    for (const bool forward : {true, false}) {
        add(forward ? u"Ctrl+PgDown"_s : u"Ctrl+PgUp"_s, [this, forward] { m_pages->TurnPage(forward); });
        add(forward ? u"F6"_s : u"Shift+F6"_s, [this, forward] { m_pages->GetRegions().Turn(forward); });
    }
}

void TestWindow::NoteFocus(QWidget* now)
{
    if (now == nullptr || m_keepsFocus || !isAncestorOf(now) || m_notices->isAncestorOf(now) ||
        !IsInFront(*this))
        return;
    m_lastFocus = now;
    QWidget* view = now;
    while (view != this && qobject_cast<GridView*>(view) == nullptr)
        view = view->parentWidget();
    m_lastView = view == this ? nullptr : view;
    m_pages->NoteFocus(view == this ? now : view);
}

void TestWindow::KeepFocus()
{
    m_keepsFocus = true;
    const auto giveBack = [this] {
        m_keepsFocus = false;
        if (IsInFront(*this))
            FocusLast();
    };
    QMetaObject::invokeMethod(this, giveBack, Qt::QueuedConnection);
}

void TestWindow::FocusLast()
{
    for (const auto& last : {m_lastFocus, m_lastView}) {
        if (last != nullptr && last->isVisible()) {
            last->setFocus();
            return;
        }
    }
}

void TestWindow::CaptionToToolTip()
{
    const auto isOnChart = [](const QWidget* widget) {
        return qobject_cast<const ChartNotice*>(widget->parentWidget()) != nullptr;
    };
    for (QLabel* label : m_pages->findChildren<QLabel*>()) {
        if (qobject_cast<ResultField*>(label) == nullptr && !isOnChart(label))
            label->setToolTip(label->text());
    }
    for (QAbstractButton* button : m_pages->findChildren<QAbstractButton*>()) {
        if (!button->text().isEmpty() && !isOnChart(button))
            button->setToolTip(button->text());
    }
    for (QGroupBox* box : m_pages->findChildren<QGroupBox*>())
        box->setToolTip(box->title());
}

void TestWindow::Activated()
{
    SetFileDialog(m_document->Context(), m_document->Info());
    m_panels->UpdateStatusPanels();
}

void TestWindow::Deactivated()
{
    LowerButtons(m_commands->Toolbar());
}

void TestWindow::closeEvent(QCloseEvent* event)
{
    event->setAccepted(m_unloading || QueryUnload());
}

bool TestWindow::QueryUnload()
{
    return m_commands->Settle() && CloseDocument(*m_document);
}

void TestWindow::Unload()
{
    m_unloading = true;
    m_commands->FileChiudi();
}

void TestWindow::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    PaintBands(painter, size());
}
