// The frame: its menus and those of the active test, one window a test, and closing with every answer.
#include "shell/MainWindow.h"
#include "Compare.h"
#include "TestPlace.h"

#include <QMdiSubWindow>
#include <QMenuBar>
#include <QTest>

using namespace Qt::StringLiterals;

class MainWindowTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        FailOnWarnings();
        m_place = std::make_unique<TestPlace>();
        m_window = std::make_unique<MainWindow>(m_place->Context());
        m_window->show();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    }

    void MenusFollowTheActiveWindow()
    {
        QCOMPARE(MenuCaptions(), QStringList({u"&File"_s, u"&Metodi"_s}));
        Trigger(u"MnuMetodiDett4"_s);
        QCOMPARE(MenuCaptions(), QStringList({u"&File"_s, u"&Modifica"_s, u"&Strumenti"_s, u"M&etodi"_s,
                                              u"&Finestre"_s, u"&?"_s}));
        QCOMPARE(m_place->dialog.Filter, u"Limiti (*.LIM)|*.LIM"_s);
        QVERIFY(m_window->OpenTest(u"LIMI")->parentWidget()->close());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QTRY_COMPARE(MenuCaptions(), QStringList({u"&File"_s, u"&Metodi"_s}));
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
        m_place->messages.WillAnswer(Answer::Cancel);
        QVERIFY(!m_window->close());
        QVERIFY(m_window->OpenTest(u"LIMI") != nullptr);
        m_place->messages.WillAnswer(Answer::No);
        QVERIFY(m_window->close());
    }

    void FailureEndsTheProgramUnlessRefused()
    {
        m_window->ShowTest(u"LIMI");
        TestWindow* window = m_window->OpenTest(u"LIMI");
        window->Document().Grid().TypeText(0, 0, QString());
        auto* calculate = window->findChild<QAction*>(u"StrumentiCalcola"_s);
        m_place->messages.WillAnswer(Answer::Cancel);
        calculate->trigger();
        QTRY_COMPARE(m_place->messages.All().size(), 2);
        QVERIFY(m_window->isVisible());
        m_place->messages.WillAnswer(Answer::No);
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

    std::unique_ptr<TestPlace> m_place;
    std::unique_ptr<MainWindow> m_window;
};

QTEST_MAIN(MainWindowTest)
#include "MainWindowTest.moc"
