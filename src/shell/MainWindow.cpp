#include "shell/MainWindow.h"

#include "validation/WindowFactory.h"

#include <QCloseEvent>
#include <QMdiSubWindow>
#include <QMenuBar>

using namespace Qt::StringLiterals;

MainWindow::MainWindow(const DocumentContext& context) : m_context(context), m_area(new QMdiArea)
{
    setObjectName(u"MDIMain"_s);
    setWindowTitle(context.define.AppTitle);
    m_area->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    m_area->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setCentralWidget(m_area);
    BuildMenus();
    connect(m_area, &QMdiArea::subWindowActivated, this, &MainWindow::ShowMenus);
    ShowMenus();
    resize(1000, 720);
}

MainWindow::~MainWindow()
{
    // The area outlives this destructor and tells of the windows that go with it.
    m_area->disconnect(this);
}

void MainWindow::AddMethod(QMenu* menu, const QString& name, const QString& caption, const QString& key)
{
    QAction* action = menu->addAction(caption);
    action->setObjectName(name);
    action->setEnabled(HasTest(key));
    connect(action, &QAction::triggered, this, [this, key] { ShowTest(key); });
}

void MainWindow::BuildMenus()
{
    auto* file = new QMenu(u"&File"_s, this);
    file->setObjectName(u"MnuFile"_s);
    QAction* exit = file->addAction(u"&Uscita"_s, this, &MainWindow::close);
    exit->setObjectName(u"MnuFileUscita"_s);

    auto* methods = new QMenu(u"&Metodi"_s, this);
    methods->setObjectName(u"MnuMetodi"_s);
    AddMethod(methods, u"MnuMetodiDett0"_s, u"&Specificità"_s, u"SPEC"_s);
    AddMethod(methods, u"MnuMetodiDett1"_s, u"&Taratura"_s, u"TARA"_s);
    QMenu* precision = methods->addMenu(u"&Precisione"_s);
    precision->menuAction()->setObjectName(u"MnuMetodiDett2"_s);
    AddMethod(precision, u"MnuMetodiPrec0"_s, u"&Ripetibilità"_s, u"PREC"_s);
    AddMethod(precision, u"MnuMetodiPrec1"_s, u"Precisione &intermedia"_s, u"PRIN"_s);
    AddMethod(precision, u"MnuMetodiPrec2"_s, u"&Riproducibilità"_s, u"RIPR"_s);
    AddMethod(methods, u"MnuMetodiDett3"_s, u"&Accuratezza"_s, u"ACCU"_s);
    AddMethod(methods, u"MnuMetodiDett4"_s, u"&Limite rilevazione e determinazione "_s, u"LIMI"_s);
    m_menus = {file, methods};
}

void MainWindow::ShowMenus()
{
    const QMdiSubWindow* current = m_area->currentSubWindow();
    auto* test = current == nullptr ? nullptr : qobject_cast<TestWindow*>(current->widget());
    menuBar()->clear();
    for (QMenu* menu : test == nullptr ? m_menus : test->Menus())
        menuBar()->addMenu(menu);
    if (test != nullptr)
        test->Activated();
}

bool MainWindow::HasTest(QStringView key) const
{
    return HasWindow(key);
}

TestWindow* MainWindow::OpenTest(QStringView key) const
{
    const QList<QMdiSubWindow*> windows = m_area->subWindowList();
    for (const QMdiSubWindow* window : windows) {
        auto* test = qobject_cast<TestWindow*>(window->widget());
        if (test != nullptr && test->Document().Info().key == key)
            return test;
    }
    return nullptr;
}

void MainWindow::ShowTest(QStringView key)
{
    if (const TestWindow* open = OpenTest(key)) {
        auto* window = qobject_cast<QMdiSubWindow*>(open->parentWidget());
        if (window->isMinimized())
            window->showNormal();
        m_area->setActiveSubWindow(window);
        return;
    }
    QMdiSubWindow* window = m_area->addSubWindow(CreateTestWindow(key, m_context, *this));
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->show();
}

void MainWindow::Arrange(Arrangement arrangement)
{
    switch (arrangement) {
    case Arrangement::Cascade:
        m_area->cascadeSubWindows();
        break;
    case Arrangement::TileHorizontally:
    case Arrangement::TileVertically:
    case Arrangement::Icons:
        m_area->tileSubWindows();
        break;
    }
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    const QList<QMdiSubWindow*> windows = m_area->subWindowList();
    for (QMdiSubWindow* window : windows) {
        if (!window->close()) {
            event->ignore();
            return;
        }
    }
    event->accept();
}
