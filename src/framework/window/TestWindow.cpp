#include "framework/window/TestWindow.h"

#include "framework/document/DocumentLife.h"
#include "framework/window/Furnishings.h"

#include <QAbstractButton>
#include <QCloseEvent>
#include <QGroupBox>
#include <QIcon>
#include <QLabel>
#include <QPainter>
#include <QTabBar>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{
constexpr int kPanelCharacters = 145;
} // namespace

TestWindow::TestWindow(std::unique_ptr<TestDocument> document, Frame& frame)
    : m_document(std::move(document)),
      m_commands(new WindowCommands(*this, *m_document, frame)),
      m_fields(new WindowFields(*m_document, m_commands->AsGuard(), this)),
      m_descriptions(new Descriptions(this)),
      m_pages(std::make_unique<WindowPages>(*m_document, *m_fields, *m_descriptions, *m_commands)),
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
    layout->addWidget(m_panels);

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
    connect(m_descriptions, &Descriptions::Hovered, this, &TestWindow::Describe);
    connect(m_pages.get(), &WindowPages::Said, this, &TestWindow::Describe);
}

TestWindow::~TestWindow() = default;

void TestWindow::Finish()
{
    m_commands->Build();
    m_pages->ShowFirstPage();
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
    return {std::max({pages.width() + 40, toolbar.width(), panels}), pages.height() + around};
}

void TestWindow::Refresh()
{
    setWindowTitle(m_document->Title());
    m_fields->Refresh();
    m_pages->Refresh();
    m_panels->SetStatus(m_document->FormatText());
    Describe({});
}

/// What is said of a file that could be read in part only.
QString TestWindow::ReadNotice() const
{
    switch (m_document->HowRead()) {
    case FileRead::Whole:
        return {};
    case FileRead::InPart:
        return u"Letto in parte, fino alla riga %1"_s.arg(m_document->ReadStop());
    case FileRead::NotAtAll:
        return u"Il file non è stato letto"_s;
    }
    return {};
}

/// Where there is nothing to describe, the notice of a file that was read in part stands.
void TestWindow::Describe(const QString& text)
{
    m_panels->SetDescription(text.isEmpty() ? ReadNotice() : text);
}

void TestWindow::CaptionToToolTip()
{
    for (QLabel* label : findChildren<QLabel*>()) {
        if (qobject_cast<StatusPanel*>(label) == nullptr)
            label->setToolTip(label->text());
    }
    for (QAbstractButton* button : findChildren<QAbstractButton*>()) {
        if (!button->text().isEmpty() && button->parentWidget() != m_commands->Toolbar())
            button->setToolTip(button->text());
    }
    for (QGroupBox* box : findChildren<QGroupBox*>())
        box->setToolTip(box->title());
}

void TestWindow::Activated()
{
    SetFileDialog(m_document->Context(), m_document->Info());
    m_panels->UpdateStatusPanels();
}

void TestWindow::closeEvent(QCloseEvent* event)
{
    event->setAccepted(m_unloading || QueryUnload());
}

bool TestWindow::QueryUnload()
{
    return m_commands->CommitGrids() && CloseDocument(*m_document);
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
