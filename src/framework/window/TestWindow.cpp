#include "framework/window/TestWindow.h"

#include "framework/window/ChartView.h"
#include "framework/window/EditCommands.h"
#include "framework/window/Forms.h"
#include "framework/window/Furnishings.h"
#include "framework/window/NumberFormatDialog.h"
#include "framework/window/TestMenus.h"

#include <QAbstractButton>
#include <QClipboard>
#include <QCloseEvent>
#include <QGridLayout>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QScrollArea>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{
constexpr int kPanelCharacters = 145;
} // namespace

TestWindow::TestWindow(std::unique_ptr<TestDocument> document, Frame& frame)
    : m_document(std::move(document)),
      m_frame(frame),
      m_fields(new WindowFields(
          *m_document, [this](const auto& event) { Run(event); }, this)),
      m_descriptions(new Descriptions(this)),
      m_toolbar(new QToolBar),
      m_tabs(new QTabWidget),
      m_panels(new StatusPanels(m_document->Info(), frame))
{
    setObjectName(m_document->Info().windowClass);
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowIcon(QIcon(u":/toolbar/Program.svg"_s));
    FurnishPalette(this);
    const auto handlerOf = [this](const QString& name) { return HandlerOf(name); };
    m_menus = BuildMenus(this, m_document->Info(), handlerOf);
    m_toolbar->setObjectName(u"Toolbar1"_s);
    BuildToolbar(m_toolbar, m_document->Info(), handlerOf);
    m_tabs->setObjectName(u"SSTab1"_s);
    m_descriptions->Describe(m_tabs, {});

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 4, 6, 2);
    layout->setSpacing(4);
    layout->addWidget(m_toolbar);
    layout->addWidget(m_tabs, 1);
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
            [this] { RunCommand([this] { StrumentiSetup(); }); });
    connect(m_descriptions, &Descriptions::Hovered, this, &TestWindow::Describe);
    connect(Menu("Modifica"_L1), &QMenu::aboutToShow, this, [this] {
        const bool any = !QGuiApplication::clipboard()->text().isEmpty();
        findChild<QAction*>(u"ModificaIncolla"_s)->setEnabled(any);
    });
    SetTools(false);
}

std::function<void()> TestWindow::HandlerOf(const QString& name)
{
    using Routine = void (TestWindow::*)();
    static const QHash<QString, Routine> kRoutines = {
        {u"FileNuovo"_s, &TestWindow::FileNuovo},
        {u"FileApri"_s, &TestWindow::FileApri},
        {u"FileSalva"_s, &TestWindow::FileSalva},
        {u"FileSalvaNome"_s, &TestWindow::FileSalvaNome},
        {u"FileChiudi"_s, &TestWindow::FileChiudi},
        {u"StrumentiCalcola"_s, &TestWindow::StrumentiCalcola},
        {u"StrumentiSetup"_s, &TestWindow::StrumentiSetup},
        {u"New"_s, &TestWindow::FileNuovo},
        {u"Open"_s, &TestWindow::FileApri},
        {u"Save"_s, &TestWindow::FileSalva},
        {u"Sum"_s, &TestWindow::ToolbarSum},
        {u"Exit"_s, &TestWindow::FileChiudi},
    };
    using Edit = void (*)(QWidget*);
    static const QHash<QString, Edit> kEdits = {
        {u"ModificaTaglia"_s, EditCut},
        {u"ModificaCopia"_s, EditCopy},
        {u"ModificaIncolla"_s, EditPaste},
        {u"ModificaCancella"_s, EditClear},
        {u"Cut"_s, EditCut},
        {u"Copy"_s, EditCopy},
        {u"Paste"_s, EditPaste},
    };
    static const QHash<QString, Arrangement> kArrangements = {
        {u"MnuFinestreTile"_s, Arrangement::TileHorizontally},
        {u"MnuFinestreVTile"_s, Arrangement::TileVertically},
        {u"MnuFinestreCascade"_s, Arrangement::Cascade},
        {u"MnuFinestreDisponiIcone"_s, Arrangement::Icons},
    };
    if (const Routine routine = kRoutines.value(name))
        return [this, routine] { RunCommand([this, routine] { (this->*routine)(); }); };
    if (const Edit edit = kEdits.value(name))
        return [this, edit] { Run([this, edit] { edit(focusWidget()); }); };
    if (const auto arrangement = kArrangements.find(name); arrangement != kArrangements.end())
        return [this, code = *arrangement] { m_frame.Arrange(code); };
    if (name.startsWith("MnuMetod"_L1))
        return HandlerOfMethod(name.sliced(8).toInt());
    return {};
}

std::function<void()> TestWindow::HandlerOfMethod(int index)
{
    const QString key = OtherTests(m_document->Info()).value(index);
    if (!m_frame.HasTest(key))
        return {};
    return [this, key] { m_frame.ShowTest(key); };
}

QMenu* TestWindow::Menu(QLatin1StringView name) const
{
    return *std::ranges::find(m_menus, QString(name), &QObject::objectName);
}

void TestWindow::RunCommand(const std::function<void()>& command)
{
    if (CommitGrids())
        Run(command);
}

/// False when a grid refuses what is being typed into it.
bool TestWindow::CommitGrids()
{
    return std::ranges::all_of(m_grids, &GridView::CommitEditor);
}

void TestWindow::Run(const std::function<void()>& event)
{
    QString message;
    try {
        event();
    } catch (const RuntimeFailure& failure) {
        message = FailureMessage(failure);
    }
    if (message.isEmpty())
        return;
    unsetCursor();
    const DocumentContext& context = m_document->Context();
    context.messages.Show(MessageIcon::Critical, context.define.AppTitle, message);
    // Once this event is over: the window that it runs in goes with the program.
    QMetaObject::invokeMethod(
        this, [this] { m_frame.EndProgram(); }, Qt::QueuedConnection);
}

GridView* TestWindow::Grid(DataGrid& grid, const QString& name, const QString& caption)
{
    auto* view = new GridView(grid, name, caption);
    view->SetPopup(Menu("Modifica"_L1));
    m_grids.append(view);
    m_descriptions->Describe(view, m_document->Context().define.DescGrid);
    connect(&grid, &DataGrid::Edited, this, [this] {
        SetTools(true);
        Describe(ReadNotice());
    });
    connect(&grid, &DataGrid::DigitsChanged, this, &TestWindow::Refresh);
    connect(view, &GridView::Refused, this, [this, &grid](const QString& text) {
        Describe(u"\"%1\" non è un numero da 0 a %2"_s.arg(text, grid.LargestText()));
    });
    connect(view, &GridView::Pasted, this, [this](const PasteCount& count) {
        Describe(u"Celle incollate: %1, rifiutate: %2, fuori dalla griglia: %3"_s.arg(
            QString::number(count.taken), QString::number(count.refused), QString::number(count.outside)));
    });
    connect(view, &GridView::Dropped, this, [this, view, &grid](const GridBlock& from, int row, int col) {
        Run([&] { DropBlock(*view, grid, from, row, col, m_document->Context()); });
    });
    return view;
}

/// The page scrolls where the window is smaller than what stands on it.
void TestWindow::AddPage(QWidget* page, const QString& caption)
{
    auto* area = new QScrollArea;
    area->setWidget(page);
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    m_tabs->addTab(area, caption);
}

void TestWindow::AddChartPages()
{
    for (const ChartData* chart : m_document->Charts()) {
        auto* view = new ChartView(*chart, u"Grafico"_s, m_document->Context());
        connect(m_document.get(), &TestDocument::ChartsChanged, view, &ChartView::ShowChart);
        AddPage(view, u"Grafico"_s);
    }
}

QWidget* TestWindow::InfoPage(const QString& labelName, const QString& conclusionsFrame)
{
    auto* page = new QWidget;
    QGroupBox* conclusions = m_fields->ConclusionsFrame(conclusionsFrame);
    m_descriptions->Describe(conclusions, m_document->Context().define.DescConcl);
    auto* layout = new QVBoxLayout(page);
    layout->addWidget(m_fields->HeaderFields(labelName));
    layout->addWidget(conclusions, 1);
    return page;
}

QWidget* TestWindow::TwoSides(const QList<QWidget*>& left, const QList<QWidget*>& right)
{
    auto* page = new QWidget;
    auto* sides = new QHBoxLayout(page);
    for (const QList<QWidget*>& frames : {left, right}) {
        auto* side = new QVBoxLayout;
        for (QWidget* frame : frames)
            side->addWidget(frame, &frames == &left && frame == frames.constLast() ? 1 : 0);
        sides->addLayout(side, 1);
    }
    qobject_cast<QVBoxLayout*>(sides->itemAt(1)->layout())->addStretch(1);
    return page;
}

QGroupBox* TestWindow::CountFrame(const QString& name, const QString& title, const CountField& field)
{
    QGroupBox* box = WindowFields::FrameBox(name, title);
    m_descriptions->Describe(box, {});
    QLineEdit* edit = m_fields->SizeEdit(field.control);
    QLabel* caption = WindowFields::FixedLabel(field.captionName, field.caption);
    caption->setWordWrap(true);
    caption->setBuddy(edit);
    auto* layout = new QGridLayout(box);
    layout->addWidget(caption, 0, 0);
    layout->addWidget(edit, 0, 1);
    layout->addWidget(WindowFields::FixedLabel(field.minimumName, field.minimum), 0, 2);
    layout->setColumnStretch(0, 1);
    return box;
}

QGroupBox* TestWindow::GridFrame(const QString& name, const QString& title)
{
    QGroupBox* box = WindowFields::FrameBox(name, title);
    GridView* grid = Grid(m_document->Grid(), u"GridData"_s, title);
    grid->SetCorner(u"Dati"_s);
    auto* layout = new QVBoxLayout(box);
    layout->addWidget(grid);
    return box;
}

QGroupBox* TestWindow::ResultBox(const QString& name)
{
    QGroupBox* box = WindowFields::FrameBox(name, u"Risultato dell'elaborazione"_s);
    m_descriptions->Describe(box, m_document->Context().define.DescResults);
    return box;
}

void TestWindow::Finish()
{
    m_tabs->setCurrentIndex(0);
    m_fields->FocusFirst();
    m_descriptions->Watch();
    Refresh();
}

QSize TestWindow::sizeHint() const
{
    QSize pages;
    for (int i = 0; i < m_tabs->count(); ++i)
        pages = pages.expandedTo(qobject_cast<QScrollArea*>(m_tabs->widget(i))->widget()->sizeHint());
    const int around = m_tabs->tabBar()->sizeHint().height() + m_toolbar->sizeHint().height() +
                       m_panels->sizeHint().height() + 40;
    // Wide enough for the panels' usual texts, too.
    const int panels = fontMetrics().averageCharWidth() * kPanelCharacters;
    return {std::max({pages.width() + 40, m_toolbar->sizeHint().width(), panels}), pages.height() + around};
}

void TestWindow::Refresh()
{
    setWindowTitle(m_document->Title());
    m_fields->Refresh();
    m_panels->SetStatus(m_document->FormatText());
    Describe(ReadNotice());
}

/// What is said of a file that could be read in part only.
QString TestWindow::ReadNotice() const
{
    const auto stop = m_document->ReadStop();
    if (!stop)
        return {};
    return *stop == 0 ? u"Il file non è stato letto"_s : u"Letto in parte, fino alla riga %1"_s.arg(*stop);
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
        if (!button->text().isEmpty() && button->parentWidget() != m_toolbar)
            button->setToolTip(button->text());
    }
    for (QGroupBox* box : findChildren<QGroupBox*>())
        box->setToolTip(box->title());
}

void TestWindow::SetTools(bool enabled)
{
    SetToolbarState(m_toolbar, enabled);
    SetMenuState(m_menus, enabled);
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
    return CommitGrids() && CloseDocument(*m_document);
}

void TestWindow::Unload()
{
    m_unloading = true;
    FileChiudi();
}

void TestWindow::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    PaintBands(painter, size());
}

void TestWindow::FileNuovo()
{
    if (NewDocument(*m_document))
        SetTools(false);
}

void TestWindow::FileApri()
{
    if (OpenDocument(*m_document))
        SetTools(true);
}

void TestWindow::FileSalva()
{
    SaveDocument(*m_document);
}

void TestWindow::FileSalvaNome()
{
    SaveDocumentAs(*m_document);
}

void TestWindow::FileChiudi()
{
    // The frame's own window of this one closes, too.
    if (parentWidget() != nullptr)
        parentWidget()->close();
    else
        close();
}

void TestWindow::StrumentiCalcola()
{
    m_document->Calc();
    unsetCursor(); // also after a calculation that stopped without a word
}

void TestWindow::ToolbarSum()
{
    m_document->Calc();
}

void TestWindow::StrumentiSetup()
{
    GridView* view = m_grids.front();
    view->setCurrentIndex(view->model()->index(0, 0));
    NumberFormatDialog dialog(m_document->Grid(), m_document->Context(), DialogParent(this));
    dialog.exec();
    if (dialog.NumberFormat.isEmpty())
        return;
    m_document->ChooseDigits({.interi = dialog.NumInteger, .decimali = dialog.NumDecimal});
    if (findChild<QAction*>(u"Sum"_s)->isEnabled())
        m_document->Calc();
}
