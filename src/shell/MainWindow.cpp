#include "shell/MainWindow.h"

#include "framework/document/Define.h"
#include "framework/document/Messages.h"
#include "shell/BackupDialog.h"
#include "shell/CompanyData.h"
#include "shell/CompanyDataDialog.h"
#include "shell/OptionsDialog.h"
#include "validation/WindowFactory.h"

#include <QCloseEvent>
#include <QMenuBar>
#include <QScreen>
#include <QStyle>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

/// On a small screen the frame leaves some room for its own title and a panel of the desktop.
constexpr double kPartOfScreen = 0.9;

/// Marks the entries of a menu that stand for open windows.
constexpr const char* kWindowEntry = "windowEntry";

QMenu* NewMenu(QWidget* parent, const QString& name, const QString& caption)
{
    auto* menu = new QMenu(caption, parent);
    menu->setObjectName(name);
    return menu;
}

QAction* AddItem(QMenu* menu, const QString& name, const QString& caption)
{
    QAction* action = menu->addAction(caption);
    action->setObjectName(name);
    return action;
}

} // namespace

MainWindow::MainWindow(const DocumentContext& context) : m_context(context), m_area(new QMdiArea)
{
    setObjectName(u"MDIMain"_s);
    setWindowTitle(context.define.AppTitle);
    m_area->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    m_area->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setCentralWidget(m_area);
    m_menus = {FileMenu(), MethodsMenu(), WindowsMenu(), HelpMenu()};
    connect(m_area, &QMdiArea::subWindowActivated, this, &MainWindow::ShowMenus);
    ShowMenus();
    resize(QSize(1100, 780).boundedTo(screen()->availableSize() * kPartOfScreen));
}

MainWindow::~MainWindow()
{
    // The area outlives this destructor and tells of the windows that go with it.
    m_area->disconnect(this);
}

QMenu* MainWindow::FileMenu()
{
    QMenu* menu = NewMenu(this, u"MnuFile"_s, u"&File"_s);
    // Deliberate: hidden, and without an effect; nothing in the program uses categories.
    AddItem(menu, u"MnuFileCreaCategoria"_s, u"&Crea categoria"_s)->setVisible(false);
    AddItem(menu, u"MnuFileApriCategoria"_s, u"&Apri categoria"_s)->setVisible(false);
    menu->addSeparator()->setObjectName(u"MnuFileLine1"_s);
    connect(AddItem(menu, u"MnuFileAnagrafica"_s, u"&Anagrafica Azienda"_s), &QAction::triggered, this,
            &MainWindow::ShowCompanyData);
    connect(AddItem(menu, u"MnuFileOpzioni"_s, u"Opzioni"_s), &QAction::triggered, this,
            &MainWindow::ShowOptions);
    menu->addSeparator()->setObjectName(u"MnuFileLine2"_s);
    connect(AddItem(menu, u"MnuFileBackup"_s, u"Backup dati"_s), &QAction::triggered, this,
            [this] { RunBackup(false); });
    menu->addSeparator()->setObjectName(u"MnuFileLine3"_s);
    connect(AddItem(menu, u"MnuFileUscita"_s, u"&Uscita"_s), &QAction::triggered, this, &MainWindow::close);
    return menu;
}

QMenu* MainWindow::MethodsMenu()
{
    QMenu* menu = NewMenu(this, u"MnuMetodi"_s, u"&Metodi"_s);
    const auto add = [this](QMenu* to, const QString& name, const QString& caption, const QString& key) {
        QAction* action = AddItem(to, name, caption);
        action->setEnabled(HasTest(key));
        connect(action, &QAction::triggered, this, [this, key] { ShowTest(key); });
    };
    add(menu, u"MnuMetodiDett0"_s, u"&Specificità"_s, u"SPEC"_s);
    add(menu, u"MnuMetodiDett1"_s, u"&Taratura"_s, u"TARA"_s);
    QMenu* precision = NewMenu(menu, u"MnuMetodiDett2"_s, u"&Precisione"_s);
    menu->addMenu(precision);
    add(precision, u"MnuMetodiPrec0"_s, u"&Ripetibilità"_s, u"PREC"_s);
    add(precision, u"MnuMetodiPrec1"_s, u"Precisione &intermedia"_s, u"PRIN"_s);
    add(precision, u"MnuMetodiPrec2"_s, u"&Riproducibilità"_s, u"RIPR"_s);
    add(menu, u"MnuMetodiDett3"_s, u"&Accuratezza"_s, u"ACCU"_s);
    add(menu, u"MnuMetodiDett4"_s, u"&Limite rilevazione e determinazione "_s, u"LIMI"_s);
    return menu;
}

QMenu* MainWindow::WindowsMenu()
{
    QMenu* menu = NewMenu(this, u"MnuFinestre"_s, u"&Finestre"_s);
    const auto add = [this, menu](const QString& name, const QString& caption, Arrangement arrangement) {
        connect(AddItem(menu, name, caption), &QAction::triggered, this,
                [this, arrangement] { Arrange(arrangement); });
    };
    add(u"MnuFinestreTile"_s, u"Affianca &orizzontalmente"_s, Arrangement::TileHorizontally);
    add(u"MnuFinestreVTile"_s, u"Affianca &verticalmente"_s, Arrangement::TileVertically);
    add(u"MnuFinestreCascade"_s, u"&Sovrapponi"_s, Arrangement::Cascade);
    add(u"MnuFinestreDisponiIcone"_s, u"&Disponi icone"_s, Arrangement::Icons);
    return menu;
}

QMenu* MainWindow::HelpMenu()
{
    QMenu* menu = NewMenu(this, u"Help"_s, u"&?"_s);
    const QList<QAction*> items = {AddItem(menu, u"MnuHelpGuida"_s, u"&Guida in linea"_s),
                                   AddItem(menu, u"Normativa"_s, u"&Normativa di riferimento ICH"_s),
                                   AddItem(menu, u"MarzenBook"_s, u"&Testo di riferimento V.Marzen"_s)};
    menu->addSeparator()->setObjectName(u"MnuHelpLine"_s);
    QAction* about = AddItem(menu, u"InfoQuorel"_s, u"Informazioni su Quorel 2006"_s);
    for (QAction* item : items + QList<QAction*>{about})
        item->setEnabled(false); // the help is yet to come
    return menu;
}

void MainWindow::ShowMenus()
{
    const QMdiSubWindow* current = m_area->currentSubWindow();
    auto* test = current == nullptr ? nullptr : qobject_cast<TestWindow*>(current->widget());
    menuBar()->clear();
    for (QMenu* menu : test == nullptr ? m_menus : test->Menus()) {
        menuBar()->addMenu(menu);
        if (menu->objectName() == u"MnuFinestre")
            ListWindows(menu);
    }
    if (test != nullptr)
        test->Activated();
}

/// The open windows below the arrangements, with the active one marked; made anew each time the menu opens.
void MainWindow::ListWindows(QMenu* menu)
{
    menu->disconnect(SIGNAL(aboutToShow()), this, nullptr);
    connect(menu, &QMenu::aboutToShow, this, [this, menu] {
        for (QAction* action : menu->actions()) {
            if (action->property(kWindowEntry).toBool())
                delete action;
        }
        const QList<QMdiSubWindow*> windows = m_area->subWindowList();
        if (!windows.isEmpty())
            menu->addSeparator()->setProperty(kWindowEntry, true);
        for (qsizetype i = 0; i < windows.size(); ++i) {
            QString title = windows[i]->windowTitle();
            QAction* action =
                menu->addAction(u"&%1 %2"_s.arg(QString::number(i + 1), title.replace(u'&', u"&&"_s)));
            action->setProperty(kWindowEntry, true);
            action->setCheckable(true);
            action->setChecked(windows[i] == m_area->currentSubWindow());
            connect(action, &QAction::triggered, windows[i],
                    [this, window = windows[i]] { Activate(window); });
        }
    });
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
    // A window that is closing is hidden, and still in the list.
    return std::ranges::any_of(m_area->subWindowList(), [&](const QMdiSubWindow* window) {
        return !window->isHidden() && window->widget() != nullptr &&
               windowClass == window->widget()->objectName();
    });
}

void MainWindow::Activate(QMdiSubWindow* window)
{
    if (window->isMinimized())
        window->showNormal();
    m_area->setActiveSubWindow(window);
}

void MainWindow::ShowTest(QStringView key)
{
    if (const TestWindow* open = OpenTest(key)) {
        Activate(qobject_cast<QMdiSubWindow*>(open->parentWidget()));
        return;
    }
    QMdiSubWindow* window = m_area->addSubWindow(CreateTestWindow(key, m_context, *this).release());
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->resize(window->sizeHint().boundedTo(m_area->viewport()->size()));
    window->show();
}

QList<QMdiSubWindow*> MainWindow::Windows(bool minimized, QMdiArea::WindowOrder order) const
{
    QList<QMdiSubWindow*> windows = m_area->subWindowList(order);
    erase_if(windows,
             [minimized](const QMdiSubWindow* window) { return window->isMinimized() != minimized; });
    return windows;
}

void MainWindow::Arrange(Arrangement arrangement)
{
    switch (arrangement) {
    case Arrangement::Cascade:
        CascadeWindows();
        break;
    case Arrangement::TileHorizontally:
        TileWindows(Qt::Vertical); // each as wide as the area, one below the other
        break;
    case Arrangement::TileVertically:
        TileWindows(Qt::Horizontal);
        break;
    case Arrangement::Icons:
        ArrangeIcons();
        break;
    }
}

/// Each a title bar below the one behind it, the active one in front of all.
void MainWindow::CascadeWindows()
{
    const QList<QMdiSubWindow*> windows = Windows(false, QMdiArea::StackingOrder);
    const int step = style()->pixelMetric(QStyle::PM_TitleBarHeight) +
                     style()->pixelMetric(QStyle::PM_MdiSubWindowFrameWidth);
    QPoint at;
    for (QMdiSubWindow* window : windows) {
        window->showNormal();
        const QSize room = m_area->viewport()->size() - QSize(at.x(), at.y());
        window->setGeometry(QRect(at, window->sizeHint().boundedTo(room)));
        window->raise();
        at += QPoint(step, step);
    }
}

void MainWindow::TileWindows(Qt::Orientation along)
{
    const QList<QMdiSubWindow*> windows = Windows(false);
    const QList<QMdiSubWindow*> icons = Windows(true);
    QRect area = m_area->viewport()->rect();
    if (!icons.isEmpty())
        area.setBottom(area.bottom() - icons.front()->height());
    const int count = static_cast<int>(windows.size());
    for (int i = 0; i < count; ++i) {
        windows[i]->showNormal();
        if (along == Qt::Vertical)
            windows[i]->setGeometry(area.left(), area.top() + area.height() * i / count, area.width(),
                                    area.height() / count);
        else
            windows[i]->setGeometry(area.left() + area.width() * i / count, area.top(), area.width() / count,
                                    area.height());
    }
}

/// Minimized windows go into rows from the lower left corner up.
void MainWindow::ArrangeIcons()
{
    const QRect area = m_area->viewport()->rect();
    QPoint at = area.bottomLeft();
    for (QMdiSubWindow* icon : Windows(true)) {
        if (at.x() > area.left() && at.x() + icon->width() > area.right())
            at = QPoint(area.left(), at.y() - icon->height());
        icon->move(at.x(), at.y() + 1 - icon->height());
        at.rx() += icon->width();
    }
}

void MainWindow::ShowCompanyData()
{
    try {
        CompanyDataDialog(ReadCompany(m_context.define.DbFile), m_context, this).exec();
    } catch (const RuntimeFailure& failure) {
        m_context.messages.Show(MessageIcon::Critical, m_context.define.AppTitle,
                                CompanyFailureText(m_context.define, failure));
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
    // All are asked before the first one goes: a refusal leaves every document as it was.
    const QList<TestWindow*> tests = Tests();
    for (TestWindow* test : tests) {
        if (test->HasChanges()) // shows what the question is about
            Activate(qobject_cast<QMdiSubWindow*>(test->parentWidget()));
        if (!test->QueryUnload()) {
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
