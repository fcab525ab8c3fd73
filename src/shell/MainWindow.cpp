#include "shell/MainWindow.h"

#include "framework/document/Define.h"
#include "framework/document/DocumentContext.h"
#include "framework/document/Messages.h"
#include "framework/document/TestDocument.h"
#include "framework/files/Database.h"
#include "shell/Backup.h"
#include "shell/BackupDialog.h"
#include "shell/CompanyData.h"
#include "shell/CompanyDataDialog.h"
#include "shell/MdiArrangement.h"
#include "shell/OptionsDialog.h"
#include "shell/RecentDocuments.h"
#include "shell/WindowList.h"
#include "stats/RuntimeFailure.h"
#include "validation/WindowFactory.h"

#include <QApplication>
#include <QCloseEvent>
#include <QMenuBar>
#include <QScreen>
#include <QShortcut>

#include <algorithm>
#include <variant>

using namespace Qt::StringLiterals;

namespace
{

/// On a small screen the frame leaves some room for its own title and a panel of the desktop.
constexpr double kPartOfScreen = 0.9;

/// A menu of the frame; in the menu bar, or inside the one named `within`.
struct Menu {
    QString name;
    QString caption;
    QString within = {};
};

const QList<Menu>& MenuTable()
{
    static const QList<Menu> kMenus = {
        {u"MnuFile"_s, u"&File"_s},
        {u"MnuMetodi"_s, u"&Metodi"_s},
        {u"MnuFinestre"_s, u"&Finestre"_s},
        {u"MnuMetodiDett2"_s, u"&Precisione"_s, u"MnuMetodi"_s},
        {u"Help"_s, u"&?"_s},
    };
    return kMenus;
}

/// Whether a window that changes its state becomes maximized or minimized, or is that no more.
bool LooksOtherwise(const QMdiSubWindow& window, const QEvent& event)
{
    const Qt::WindowStates before = static_cast<const QWindowStateChangeEvent&>(event).oldState();
    return ((before ^ window.windowState()) & (Qt::WindowMaximized | Qt::WindowMinimized)) != 0;
}

} // namespace

MainWindow::MainWindow(const DocumentContext& context)
    : m_context(context),
      m_area(new FrameArea),
      m_windowList(new WindowList(m_area, [this] { return MayLeaveFront(); })),
      m_open(new QAction(u"Apri documento..."_s, this))
{
    setObjectName(u"MDIMain"_s);
    setWindowTitle(context.define.AppTitle);
    m_area->setFocusPolicy(Qt::NoFocus);
    setCentralWidget(m_area);
    setAcceptDrops(true);
    m_open->setShortcut(Qt::CTRL | Qt::Key_O);
    connect(m_open, &QAction::triggered, this, &MainWindow::AskForDocument);
    addAction(m_open);
    MakeMenus();
    for (const bool forward : {true, false})
        connect(new QShortcut(QKeySequence(forward ? u"Ctrl+Tab"_s : u"Ctrl+Shift+Tab"_s), this),
                &QShortcut::activated, this, [this, forward] { TurnWindow(forward); });
    connect(m_area, &QMdiArea::subWindowActivated, this, &MainWindow::ShowMenus);
    qApp->installEventFilter(this);
    ShowMenus();
    resize(QSize(1100, 780).boundedTo(screen()->availableSize() * kPartOfScreen));
}

MainWindow::~MainWindow()
{
    // The area outlives this destructor and tells of the windows that go with it.
    m_area->disconnect(this);
}

/// An item of a menu; one without a caption is a separator. It shows the test of this key, or does what the
/// command does; an empty key stands for what the program does not have yet.
struct MainWindow::Item {
    QString menu;
    QString name;
    QString caption = {};
    std::variant<QString, Command> does = {};
    bool hidden = false;
};

/// A menu stands where its first item does.
const QList<MainWindow::Item>& MainWindow::ItemTable()
{
    const auto arrange = [](Arrangement arrangement) -> Command {
        return [arrangement](MainWindow& window) { window.Arrange(arrangement); };
    };
    // Deliberate: hidden, and without an effect; nothing in the program uses categories.
    const Command nothing = [](MainWindow&) {};
    const Command backup = [](MainWindow& window) { window.RunBackup(false); };
    static const QList<Item> kItems = {
        {u"MnuFile"_s, u"MnuFileCreaCategoria"_s, u"&Crea categoria"_s, nothing, true},
        {u"MnuFile"_s, u"MnuFileApriCategoria"_s, u"&Apri categoria"_s, nothing, true},
        {u"MnuFile"_s, u"MnuFileLine1"_s},
        {u"MnuFile"_s, u"MnuFileAnagrafica"_s, u"&Anagrafica Azienda"_s,
         Command(&MainWindow::ShowCompanyData)},
        {u"MnuFile"_s, u"MnuFileOpzioni"_s, u"Opzioni"_s, Command(&MainWindow::ShowOptions)},
        {u"MnuFile"_s, u"MnuFileLine2"_s},
        {u"MnuFile"_s, u"MnuFileBackup"_s, u"Backup dati"_s, backup},
        {u"MnuFile"_s, u"MnuFileLine3"_s},
        {u"MnuFile"_s, u"MnuFileUscita"_s, u"&Uscita"_s, Command(&MainWindow::EndProgram)},
        {u"MnuMetodi"_s, u"MnuMetodiDett0"_s, u"&Specificità"_s, u"SPEC"_s},
        {u"MnuMetodi"_s, u"MnuMetodiDett1"_s, u"&Taratura"_s, u"TARA"_s},
        {u"MnuMetodiDett2"_s, u"MnuMetodiPrec0"_s, u"&Ripetibilità"_s, u"PREC"_s},
        {u"MnuMetodiDett2"_s, u"MnuMetodiPrec1"_s, u"Precisione &intermedia"_s, u"PRIN"_s},
        {u"MnuMetodiDett2"_s, u"MnuMetodiPrec2"_s, u"&Riproducibilità"_s, u"RIPR"_s},
        {u"MnuMetodi"_s, u"MnuMetodiDett3"_s, u"&Accuratezza"_s, u"ACCU"_s},
        {u"MnuMetodi"_s, u"MnuMetodiDett4"_s, u"&Limite rilevazione e determinazione "_s, u"LIMI"_s},
        {u"MnuFinestre"_s, u"MnuFinestreTile"_s, u"Affianca &orizzontalmente"_s,
         arrange(Arrangement::TileHorizontally)},
        {u"MnuFinestre"_s, u"MnuFinestreVTile"_s, u"Affianca &verticalmente"_s,
         arrange(Arrangement::TileVertically)},
        {u"MnuFinestre"_s, u"MnuFinestreCascade"_s, u"&Sovrapponi"_s, arrange(Arrangement::Cascade)},
        {u"MnuFinestre"_s, u"MnuFinestreDisponiIcone"_s, u"&Disponi icone"_s, arrange(Arrangement::Icons)},
        {u"Help"_s, u"MnuHelpGuida"_s, u"&Guida in linea"_s},
        {u"Help"_s, u"Normativa"_s, u"&Normativa di riferimento ICH"_s},
        {u"Help"_s, u"MarzenBook"_s, u"&Testo di riferimento V.Marzen"_s},
        {u"Help"_s, u"MnuHelpLine"_s},
        {u"Help"_s, u"InfoQuorel"_s, u"Informazioni su Quorel 2006"_s},
    };
    return kItems;
}

QMenu* MainWindow::OwnMenu(const QString& name)
{
    if (auto* made = findChild<QMenu*>(name))
        return made;
    const auto row = std::ranges::find(MenuTable(), name, &Menu::name);
    QMenu* within = row->within.isEmpty() ? nullptr : OwnMenu(row->within);
    auto* menu = new QMenu(row->caption, within != nullptr ? static_cast<QWidget*>(within) : this);
    menu->setObjectName(name);
    if (within != nullptr)
        within->addMenu(menu);
    else
        m_menus.append(menu);
    return menu;
}

void MainWindow::MakeMenus()
{
    for (const Item& item : ItemTable()) {
        QMenu* menu = OwnMenu(item.menu);
        QAction* action = item.caption.isEmpty() ? menu->addSeparator() : menu->addAction(item.caption);
        action->setObjectName(item.name);
        action->setVisible(!item.hidden);
        if (action->isSeparator())
            continue;
        if (const auto* key = std::get_if<QString>(&item.does)) {
            action->setEnabled(HasTest(*key));
            connect(action, &QAction::triggered, this, [this, key] { ShowTest(*key); });
        } else {
            connect(action, &QAction::triggered, this,
                    [this, &item] { std::get<Command>(item.does)(*this); });
        }
    }
}

void MainWindow::ShowMenus()
{
    TestWindow* test = FrontTest();
    m_open->setEnabled(test == nullptr); // a test has a command of its own under these keys
    m_area->ShowHint(test == nullptr);
    menuBar()->clear();
    for (QMenu* menu : test == nullptr ? m_menus : test->Menus()) {
        menuBar()->addMenu(menu);
        if (menu->objectName() == u"MnuFinestre")
            m_windowList->SetMenu(menu);
    }
    for (TestWindow* other : Tests()) {
        if (other != test)
            other->Deactivated();
    }
    if (test != nullptr)
        test->Activated();
}

bool MainWindow::HasTest(QStringView key) const
{
    return HasWindow(key);
}

TestWindow* MainWindow::OpenTest(QStringView key) const
{
    const QList<TestWindow*> tests = Tests();
    const auto found =
        std::ranges::find_if(tests, [key](TestWindow* test) { return test->Document().Info().key == key; });
    return found == tests.end() ? nullptr : *found;
}

QList<TestWindow*> MainWindow::Tests() const
{
    QList<TestWindow*> tests;
    const QList<QMdiSubWindow*> windows = m_area->subWindowList();
    for (const QMdiSubWindow* window : windows) {
        if (auto* test = qobject_cast<TestWindow*>(window->widget()))
            tests.append(test);
    }
    return tests;
}

bool MainWindow::FormIsOpen(QAnyStringView windowClass) const
{
    return std::ranges::any_of(m_area->subWindowList(), [&](const QMdiSubWindow* window) {
        return window->widget() != nullptr && windowClass == window->widget()->objectName();
    });
}

TestWindow* MainWindow::FrontTest() const
{
    const QMdiSubWindow* current = m_area->currentSubWindow();
    return current == nullptr ? nullptr : qobject_cast<TestWindow*>(current->widget());
}

bool MainWindow::MayLeaveFront()
{
    TestWindow* front = FrontTest();
    return front == nullptr || front->Settle();
}

void MainWindow::TurnWindow(bool forward)
{
    if (!MayLeaveFront())
        return;
    if (forward)
        m_area->activateNextSubWindow();
    else
        m_area->activatePreviousSubWindow();
}

void MainWindow::ShowTest(QStringView key)
{
    if (!MayLeaveFront())
        return;
    if (const TestWindow* open = OpenTest(key)) {
        ActivateWindow(qobject_cast<QMdiSubWindow*>(open->parentWidget()));
        return;
    }
    const QMdiSubWindow* front = m_area->currentSubWindow();
    const bool maximized = front != nullptr && front->isMaximized();
    QMdiSubWindow* window = m_area->addSubWindow(CreateTestWindow(key, m_context, *this).release());
    // A click on what takes no focus, a button, a panel, a label, leaves it where it is.
    window->setFocusPolicy(Qt::NoFocus);
    window->resize(window->sizeHint().boundedTo(m_area->viewport()->size()));
    window->show();
    if (maximized) { // Qt gives it the state, and not always the room
        const auto fill = [this, window] {
            if (window->isMaximized())
                window->setGeometry(m_area->viewport()->rect());
        };
        window->showMaximized();
        QMetaObject::invokeMethod(window, fill, Qt::QueuedConnection);
    }
    const TestDocument& document = OpenTest(key)->Document();
    connect(&document, &TestDocument::Filed, this, [](const QString& fileName) { NoteDocument(fileName); });
}

bool MainWindow::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonPress && !BringToFront(qobject_cast<QWidget*>(object)))
        return true;
    const auto* window = qobject_cast<QMdiSubWindow*>(object);
    if (window != nullptr && event->type() == QEvent::WindowStateChange && LooksOtherwise(*window, *event)) {
        if (auto* test = qobject_cast<TestWindow*>(window->widget()))
            test->KeepFocus();
    }
    return QMainWindow::eventFilter(object, event);
}

/// A click anywhere in a window that is not in front brings it there, also one that takes no focus: on the
/// title, a tab, a button. False where the one in front has to stay.
bool MainWindow::BringToFront(QWidget* clicked)
{
    while (clicked != nullptr && qobject_cast<QMdiSubWindow*>(clicked) == nullptr)
        clicked = clicked->parentWidget();
    auto* window = qobject_cast<QMdiSubWindow*>(clicked);
    if (window == nullptr || window == m_area->currentSubWindow())
        return true;
    if (!MayLeaveFront())
        return false;
    m_area->setActiveSubWindow(window);
    return true;
}

void MainWindow::Arrange(Arrangement arrangement)
{
    ArrangeWindows(*m_area, arrangement);
}

void MainWindow::ShowCompanyData()
{
    try {
        CompanyDataDialog(ReadCompany(m_context.define.DbFile), m_context, this).exec();
    } catch (const RuntimeFailure& failure) {
        m_context.messages.Show(MessageIcon::Critical, m_context.define.AppTitle,
                                CompanyReadFailureText(m_context.define, failure));
    }
}

void MainWindow::ShowOptions()
{
    OptionsDialog(m_context, this).exec();
}

void MainWindow::RunBackup(bool silent)
{
    BackupDialog progress(this);
    BackupFiles(silent, m_context.define, m_context.messages, progress);
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    if (!MayLeaveFront()) {
        event->ignore();
        return;
    }
    // All are asked before the first one goes: a refusal leaves every document as it was.
    const QList<TestWindow*> tests = Tests();
    for (TestWindow* test : tests) {
        if (test->HasChanges()) // shows what the question is about
            ActivateWindow(qobject_cast<QMdiSubWindow*>(test->parentWidget()));
        if (!test->QueryUnload()) {
            ActivateWindow(qobject_cast<QMdiSubWindow*>(test->parentWidget()));
            event->ignore();
            return;
        }
    }
    for (TestWindow* test : tests)
        test->Unload();
    if (BackupAtClose(m_context.define))
        RunBackup(true);
    event->accept();
}
