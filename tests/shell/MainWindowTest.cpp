// The frame: its menus and those of the active test, one window a test, and closing with every answer.
#include "shell/MainWindow.h"
#include "Compare.h"
#include "TestWorld.h"

#include <QClipboard>
#include <QDir>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

class MainWindowTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        FailOnWarnings();
        m_world = std::make_unique<TestWorld>();
        m_window = std::make_unique<MainWindow>(m_world->Context());
        m_window->show();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    }

    void MenusFollowTheActiveWindow()
    {
        const QStringList own{u"&File"_s, u"&Metodi"_s, u"&Finestre"_s, u"&?"_s};
        QCOMPARE(MenuCaptions(), own);
        Trigger(u"MnuMetodiDett4"_s);
        QCOMPARE(MenuCaptions(), QStringList({u"&File"_s, u"&Modifica"_s, u"&Strumenti"_s, u"M&etodi"_s,
                                              u"&Finestre"_s, u"&?"_s}));
        QCOMPARE(m_world->dialog.Filter, u"Limiti (*.LIM)|*.LIM"_s);
        QVERIFY(m_window->OpenTest(u"LIMI")->parentWidget()->close());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QTRY_COMPARE(MenuCaptions(), own);
    }

    void ItemsOfTheFrame()
    {
        QStringList items;
        for (const QAction* menu : m_window->menuBar()->actions()) {
            for (const QAction* item : menu->menu()->actions())
                items += item->isSeparator() ? u"-"_s
                         : item->isVisible() ? item->text()
                                             : u"("_s + item->text();
        }
        QCOMPARE(items.join(u'|'),
                 u"(&Crea categoria|(&Apri categoria|-|&Anagrafica Azienda|Opzioni|-|Backup dati|-|&Uscita|"
                 "&Specificità|&Taratura|&Precisione|&Accuratezza|&Limite rilevazione e determinazione |"
                 "Affianca &orizzontalmente|Affianca &verticalmente|&Sovrapponi|&Disponi icone|"
                 "&Guida in linea|&Normativa di riferimento ICH|&Testo di riferimento V.Marzen|-|"
                 "Informazioni su Quorel 2006"_s);
        QStringList precision;
        for (const QAction* item : m_window->findChild<QMenu*>(u"MnuMetodiDett2"_s)->actions())
            precision += item->text();
        QCOMPARE(precision.join(u'|'), u"&Ripetibilità|Precisione &intermedia|&Riproducibilità"_s);
    }

    void WindowListAndArrangements()
    {
        m_window->ShowTest(u"LIMI");
        auto* menu = m_window->OpenTest(u"LIMI")->findChild<QMenu*>(u"MnuFinestre"_s);
        for (int i = 0; i < 2; ++i) { // made anew, not longer, each time
            Q_EMIT menu->aboutToShow();
            QCOMPARE(menu->actions().size(), 6);
        }
        QCOMPARE(menu->actions().last()->text(), u"&1 Limiti - no file"_s);
        QVERIFY(menu->actions().last()->isChecked());
        auto* sub = m_window->findChild<QMdiSubWindow*>();
        sub->showMinimized();
        menu->actions().last()->trigger();
        QVERIFY(!sub->isMinimized());

        QMdiArea* area = m_window->findChild<QMdiArea*>();
        auto* other = area->addSubWindow(new QWidget);
        other->show();
        m_window->Arrange(Arrangement::TileHorizontally);
        QCOMPARE(sub->width(), area->viewport()->width());
        QCOMPARE(other->y(), sub->height());
        m_window->Arrange(Arrangement::TileVertically);
        QCOMPARE(sub->height(), area->viewport()->height());
        QCOMPARE(other->x(), area->viewport()->width() / 2);
        area->setActiveSubWindow(sub);
        m_window->Arrange(Arrangement::Cascade);
        QCOMPARE(other->pos(), QPoint(0, 0)); // the active one stands in front, all titles to be seen
        QVERIFY(sub->x() > 0 && sub->y() == sub->x());
        QVERIFY(area->viewport()->rect().contains(sub->geometry()));
        sub->showMinimized();
        sub->move(50, 50);
        m_window->Arrange(Arrangement::Icons);
        QCOMPARE(sub->geometry().bottomLeft(), area->viewport()->rect().bottomLeft());
    }

    void ShortcutsOfTheActiveTest()
    {
        m_window->ShowTest(u"LIMI");
        auto* field = m_window->findChild<QLineEdit*>(u"aInputData0"_s);
        field->setFocus();
        QTest::keyClicks(field, u"HPLC"_s);
        QApplication::clipboard()->setText(u"before"_s);
        field->selectAll();
        QTest::keyClick(field, Qt::Key_X, Qt::ControlModifier); // clears: the field's own cut is not asked
        QCOMPARE(field->text(), QString());
        QCOMPARE(QApplication::clipboard()->text(), u"before"_s);
        QTest::keyClick(field, Qt::Key_Insert, Qt::ShiftModifier);
        QCOMPARE(m_window->OpenTest(u"LIMI")->Document().InputData(0), u"before"_s);
        m_window->OpenTest(u"LIMI")->Document().ClearFlags();
    }

    void BackupAtClosing()
    {
        const QTemporaryDir folder;
        QVERIFY(QDir(folder.path()).mkdir(u"backup"_s));
        QVERIFY(WriteBytes(folder.filePath(u"a.LIM"_s), "x"));
        m_world->define.OpenSaveFolder = folder.path();
        m_world->define.BackupFolder = folder.filePath(u"backup"_s);
        m_world->define.BkAutoSave = u"1"_s;
        m_window->ShowTest(u"LIMI");
        m_window->OpenTest(u"LIMI")->Document().TypeInputData(0, u"HPLC"_s);
        m_world->messages.WillAnswer(Answer::Cancel);
        QVERIFY(!m_window->close());
        QVERIFY(!QFile::exists(folder.filePath(u"backup/a.LIM"_s)));
        m_world->messages.WillAnswer(Answer::No);
        QVERIFY(m_window->close());
        QCOMPARE(BytesOf(folder.filePath(u"backup/a.LIM"_s)), "x");
        QCOMPARE(m_world->messages.All().size(), 2); // the two questions alone
    }

    void OneWindowATest()
    {
        m_window->ShowTest(u"LIMI");
        TestWindow* first = m_window->OpenTest(u"LIMI");
        qobject_cast<QMdiSubWindow*>(first->parentWidget())->showMinimized();
        m_window->ShowTest(u"LIMI");
        QCOMPARE(m_window->OpenTest(u"LIMI"), first);
        QCOMPARE(m_window->findChildren<QMdiSubWindow*>().size(), 1);
        QVERIFY(!first->isMinimized());
        QVERIFY(!m_window->HasTest(u"TARA"));
    }

    void ClosingTheFrameAsks()
    {
        m_window->ShowTest(u"LIMI");
        m_window->OpenTest(u"LIMI")->Document().TypeInputData(0, u"HPLC"_s);
        m_world->messages.WillAnswer(Answer::Cancel);
        QVERIFY(!m_window->close());
        QVERIFY(m_window->OpenTest(u"LIMI") != nullptr);
        m_world->messages.WillAnswer(Answer::No);
        QVERIFY(m_window->close());
    }

    /// All are asked before the first one goes, each in front while it is asked about, its kind in the
    /// dialog.
    void ARefusalKeepsAllWindows()
    {
        for (const auto& key : {u"LIMI"_s, u"PREC"_s}) {
            m_window->ShowTest(key);
            m_window->OpenTest(key)->Document().TypeInputData(0, u"HPLC"_s);
        }
        m_world->messages.WillAnswer(Answer::No);
        m_world->messages.WillAnswer(Answer::Cancel);
        QVERIFY(!m_window->close());
        QCOMPARE(m_window->OpenTest(u"LIMI")->Document().InputData(0), u"HPLC"_s);
        QVERIFY(m_window->OpenTest(u"LIMI")->HasChanges());
        m_window->findChild<QMdiArea*>()->setActiveSubWindow(
            qobject_cast<QMdiSubWindow*>(m_window->OpenTest(u"PREC")->parentWidget()));
        m_world->messages.WillAnswer(Answer::Cancel);
        QVERIFY(!m_window->close());
        QCOMPARE(m_window->findChild<QMdiArea*>()->activeSubWindow()->widget(), m_window->OpenTest(u"LIMI"));
        QCOMPARE(m_world->dialog.DefaultExt, u"LIM"_s);
        m_world->messages.WillAnswer(Answer::No);
        m_world->messages.WillAnswer(Answer::No);
        QVERIFY(m_window->close());
    }

    void FailureEndsTheProgramUnlessRefused()
    {
        m_window->ShowTest(u"LIMI");
        TestWindow* window = m_window->OpenTest(u"LIMI");
        window->Document().Grid().Edits().TypeText(0, 0, QString());
        auto* calculate = window->findChild<QAction*>(u"StrumentiCalcola"_s);
        m_world->messages.WillAnswer(Answer::Cancel);
        calculate->trigger();
        QTRY_COMPARE(m_world->messages.All().size(), 2);
        QVERIFY(m_window->isVisible());
        m_world->messages.WillAnswer(Answer::No);
        calculate->trigger();
        QTRY_VERIFY(!m_window->isVisible());
    }

private:
    QStringList MenuCaptions() const
    {
        QStringList captions;
        for (const QAction* action : m_window->menuBar()->actions())
            captions += action->text();
        return captions;
    }

    void Trigger(const QString& name) { m_window->findChild<QAction*>(name)->trigger(); }

    std::unique_ptr<TestWorld> m_world;
    std::unique_ptr<MainWindow> m_window;
};

QTEST_MAIN(MainWindowTest)
#include "MainWindowTest.moc"
