// Charts on screen: the stories of tests/data/chart-views, by mouse and keys, with the real painter from its
// module.
#include "framework/window/ChartView.h"
#include "OneFont.h"
#include "TestWorld.h"
#include "framework/MadeUpDocument.h"
#include "framework/window/ChartPage.h"
#include "stories/ChartPicture.h"
#include "stories/ChartStory.h"
#include "stories/ExpectedText.h"
#include "validation/repeatability/PrecDocument.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDir>
#include <QImage>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QTimer>
#include <QToolTip>
#include <QWheelEvent>

#include <functional>

using namespace Qt::StringLiterals;

namespace
{

/// Tells what it is asked for, and answers with the name laid out for it.
class ToldDialog : public CommonDialog
{
public:
    bool ShowOpen() override { return false; }
    bool ShowSave() override
    {
        told = {u"asks for a file: %1, .%2, \"%3\" in %4"_s.arg(Filter, DefaultExt, FileName, InitDir)};
        FileName = answer;
        return !answer.isEmpty();
    }
    QString BrowseFolder(const QString& /*title*/, const QString& /*folder*/) override { return {}; }

    QString answer;
    QStringList told;
};

QByteArray PictureOf(QWidget& view)
{
    return SvgOf(view.size(),
                 [&view](QPaintDevice& device) { view.render(&device, {}, {}, QWidget::RenderFlags()); });
}

/// What black is on screen.
QString DarkestOf(QWidget& view)
{
    const QImage image = view.grab().toImage();
    QColor darkest(Qt::white);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y).lightness() < darkest.lightness())
                darkest = image.pixelColor(x, y);
        }
    }
    return darkest.name();
}

struct PaintCount : QObject {
    bool eventFilter(QObject* /*object*/, QEvent* event) override
    {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
    int count = 0;
};

/// A chart in a window. Places are told by the numbers at its axes.
class ViewStory : public ChartStory
{
public:
    ViewStory()
    {
        m_world.define.ProgramFolder = QStringLiteral(QUOREL_TEST_PROGRAM);
        m_world.define.OpenSaveFolder = u"DOC/"_s;
        m_dialog.FileName = u"lotto.PRE"_s;
    }

protected:
    QStringList Do(const QString& verb, const QString& rest) override
    {
        m_numbers = NumbersOf(rest);
        if (verb == u"show") // WIDTH HEIGHT DECIMAL-SEPARATOR; or the chart in the place of the former one
            Show(rest);
        else if (verb == u"wheel") // X Y STEPS
            Wheel();
        else if (verb == u"drag" || verb == u"rightdrag") // X Y X Y
            Drag(verb == u"drag" ? Qt::LeftButton : Qt::RightButton);
        else if (verb == u"hover") // X Y
            Hover();
        else if (verb == u"double") // X Y [Ctrl|Right]
            Mouse(QEvent::MouseButtonDblClick, Place(0),
                  rest.contains(u"Right") ? Qt::RightButton : Qt::LeftButton,
                  rest.contains(u"Ctrl") ? Qt::ControlModifier : Qt::NoModifier);
        else if (verb == u"press") // KEY...
            Press(rest.split(u' '));
        else if (verb == u"place") // alone|beside|enlarged
            m_view->SetPlace(rest == u"alone"    ? ChartPlace::Alone
                             : rest == u"beside" ? ChartPlace::Beside
                                                 : ChartPlace::Enlarged);
        else if (verb == u"results") // none|current|stale
            m_view->SetResults(rest == u"none"      ? ResultState::None
                               : rest == u"current" ? ResultState::Current
                                                    : ResultState::Stale);
        else if (verb == u"size") // WIDTH HEIGHT
            m_view->resize(qRound(m_numbers[0]), qRound(m_numbers[1]));
        else if (verb == u"click") // NAME
            QTest::mouseClick(m_view->findChild<QPushButton*>(rest), Qt::LeftButton);
        else if (verb == u"leave")
            m_view->clearFocus();
        else if (verb == u"menu") // [CAPTION [FILE, - to cancel]]
            Menu(rest);
        else
            return {u"NO SUCH STEP"_s};
        QCoreApplication::processEvents();
        const bool painted = m_paints.count > 0;
        const QStringList before = std::exchange(m_seen, Seen());
        QCoreApplication::processEvents();
        m_paints.count = 0;
        if (m_picture.lines != before.first(std::min(before.size(), m_picture.lines.size())) && !painted)
            m_told += u"NOT PAINTED AGAIN"_s;
        return Changes(before, m_seen) + std::exchange(m_told, {});
    }

private:
    void Show(const QString& rest)
    {
        if (!m_view) {
            m_world.define.DecSep = rest.last(1);
            m_view = std::make_unique<ChartView>(
                m_chart.name, u"Grafico"_s,
                DocumentContext{m_world.define, m_dialog, m_world.messages, m_world.fTable});
            QObject::connect(m_view.get(), &ChartView::TurnAsked, m_view.get(),
                             [this] { m_told += u"asks for another place"_s; });
            m_view->resize(qRound(m_numbers[0]), qRound(m_numbers[1]));
            const QSize least = m_view->minimumSizeHint();
            const QAccessibleInterface* read = QAccessible::queryAccessibleInterface(m_view.get());
            m_told += u"%1 %2 \"%3\", at least %4 x %5, focus policy %6, mouse %7"_s
                          .arg(read->role() == QAccessible::Chart ? u"chart"_s : u"NO CHART"_s,
                               m_view->objectName(), read->text(QAccessible::Name))
                          .arg(least.width())
                          .arg(least.height())
                          .arg(m_view->focusPolicy())
                          .arg(m_view->hasMouseTracking() ? u"followed"_s : u"NOT FOLLOWED"_s);
            m_view->installEventFilter(&m_paints);
            m_view->show();
            if (!QTest::qWaitForWindowActive(m_view.get()))
                qFatal("the chart is not shown");
        }
        m_view->ShowChart(m_chart);
    }

    QStringList Seen()
    {
        m_picture = ReadPicture(PictureOf(*m_view));
        QStringList seen = m_picture.lines;
        seen += u"described: "_s + m_view->accessibleDescription();
        if (const QString darkest = DarkestOf(*m_view); darkest != u"#000000")
            seen += u"darkest: "_s + darkest;
        const auto* all = m_view->findChild<QPushButton*>(u"MostraTutto"_s);
        const auto* says = all->parentWidget()->findChild<QLabel*>();
        if (all->isVisible())
            seen += u"notice: %1 [%2] from %3"_s.arg(says->isVisible() ? says->text() : u"-"_s, all->text())
                        .arg(all->parentWidget()->x());
        if (m_view->cursor().shape() != Qt::ArrowCursor)
            seen += u"hand closed"_s;
        if (QToolTip::isVisible())
            seen += u"tip: "_s + QToolTip::text();
        return seen;
    }

    /// By the numbers of the step from this one on.
    QPointF Place(qsizetype from) const { return m_picture.Place({m_numbers[from], m_numbers[from + 1]}); }

    void Mouse(QEvent::Type type, const QPointF& at, Qt::MouseButton button, Qt::KeyboardModifiers keys = {})
    {
        QMouseEvent event(type, at, m_view->mapToGlobal(at), button, button, keys);
        QApplication::sendEvent(m_view.get(), &event);
        if (type == QEvent::MouseMove && event.isAccepted())
            m_told += u"THE WINDOW SEES NO MOUSE"_s;
    }

    void Press(const QStringList& keys)
    {
        QGuiApplication::clipboard()->clear();
        for (const QString& key : keys) {
            const QKeyCombination with = QKeySequence(key)[0];
            QKeyEvent event(QEvent::KeyPress, with.key(), with.keyboardModifiers());
            QApplication::sendEvent(m_view.get(), &event);
            m_told += event.isAccepted() ? QStringList() : QStringList{key + u" is left to others"_s};
        }
        TellResults();
    }

    /// A tip goes a moment after it is told to.
    void Hover()
    {
        const QString before = QToolTip::text();
        Mouse(QEvent::MouseMove, Place(0), Qt::NoButton);
        static_cast<void>(
            QTest::qWaitFor([&] { return !QToolTip::isVisible() || QToolTip::text() != before; }, 1000));
    }

    void Wheel()
    {
        const QPointF at = Place(0);
        const int steps = qRound(m_numbers[2]);
        for (int i = 0; i < std::abs(steps); ++i) {
            QWheelEvent event(at, m_view->mapToGlobal(at), {}, {0, steps > 0 ? 120 : -120}, Qt::NoButton,
                              Qt::NoModifier, Qt::NoScrollPhase, false);
            QApplication::sendEvent(m_view.get(), &event);
        }
    }

    void Drag(Qt::MouseButton button)
    {
        const QPointF from = Place(0);
        const QPointF to = Place(2);
        Mouse(QEvent::MouseButtonPress, from, button);
        Mouse(QEvent::MouseMove, (from + to) / 2, Qt::NoButton);
        m_told += m_view->cursor().shape() == Qt::ClosedHandCursor ? QStringList{u"a closed hand"_s}
                                                                   : QStringList();
        Mouse(QEvent::MouseMove, to, Qt::NoButton);
        Mouse(QEvent::MouseButtonRelease, to, button);
    }

    void Menu(const QString& rest)
    {
        const QString caption = rest.section(u" > "_s, 0, 0);
        const QString file = rest.section(u" > "_s, 1);
        m_dialog.answer = file.isEmpty() ? QString() : m_folder.filePath(file);
        QTimer::singleShot(0, m_view.get(), [this, caption] {
            auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            for (QAction* action : menu != nullptr ? menu->actions() : QList<QAction*>()) {
                if (caption.isEmpty())
                    m_told += u"item: "_s +
                              (action->isSeparator() ? u"-"_s
                                                     : (QString(action->text()).replace(u'\t', u' ') + u' ' +
                                                        action->shortcut().toString())
                                                           .trimmed()) +
                              (action->isEnabled() ? QString() : u" grey"_s);
                else if (action->text().section(u'\t', 0, 0) == caption)
                    action->trigger();
            }
            menu->close();
        });
        QGuiApplication::clipboard()->clear();
        const QPoint middle = m_view->rect().center();
        QContextMenuEvent event(QContextMenuEvent::Mouse, middle, m_view->mapToGlobal(middle));
        QApplication::sendEvent(m_view.get(), &event);
        TellResults();
    }

    void TellResults()
    {
        if (const QImage copied = QGuiApplication::clipboard()->image(); !copied.isNull())
            m_told += u"copied: %1 x %2, %3 mm wide"_s.arg(copied.width())
                          .arg(copied.height())
                          .arg(qRound(1000.0 * copied.width() / copied.dotsPerMeterX()));
        for (const QString& name : QDir(m_folder.path()).entryList(QDir::Files)) {
            const QByteArray bytes = BytesOf(m_folder.filePath(name));
            m_told += u"file %1: %2"_s.arg(name, QString::fromLatin1(bytes.first(5).trimmed()));
            if (name.endsWith(u"svg"))
                m_told += ReadPicture(bytes).lines.first(3);
            QFile::remove(m_folder.filePath(name));
        }
        m_told += std::exchange(m_dialog.told, {});
        if (m_dialog.FileName != u"lotto.PRE")
            m_told += u"THE DOCUMENT'S NAME IS LOST"_s;
        for (const auto& shown : m_world.messages.All())
            m_told += u"message %1 %2: %3"_s.arg(static_cast<int>(shown.icon))
                          .arg(shown.title, shown.text.section(u'\n', 0, 0));
    }

    QTemporaryDir m_folder;
    TestWorld m_world;
    ToldDialog m_dialog;
    PaintCount m_paints;
    std::unique_ptr<ChartView> m_view;
    QList<double> m_numbers;
    ChartPicture m_picture; ///< after the step before
    QStringList m_seen;
    QStringList m_told; ///< what came with the step
};

} // namespace

class ChartViewTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { LayOutByOneFont(); }
    void init() { FailOnWarnings(); }

    void Seen_data() { AddKeptTexts({u"chart-views"_s}); }

    void Seen()
    {
        QFETCH(QString, file);
        const QString difference = ViewStory().Difference(file);
        QVERIFY2(difference.isEmpty(), qPrintable(difference));
    }

    void ModuleIsMissing()
    {
        TestWorld world;
        world.define.ProgramFolder = u"/nowhere"_s;
        ChartView view(u"VtGrafPrec"_s, u"Grafico"_s, world.Context());
        QCOMPARE(view.objectName() + u' ' + view.accessibleName(), u"VtGrafPrec Grafico"_s);
        ChartData chart;
        chart.rows = {{0, 0}, {1, 1}};
        view.ShowChart(chart);
        view.resize(400, 300);
        const auto picture = [&view] { return ReadPicture(PictureOf(view)).lines; };
        const QStringList once = picture();
        QVERIFY2(once.join(u' ').contains(u"Il modulo dei grafici non può"), qPrintable(once.join(u'\n')));
        QVERIFY(once.join(u' ').contains(u"quorel_charts: (")); // why
        view.ShowChart(chart);                                  // says so again, and fails no differently
        QCOMPARE(picture(), once);
        VERIFY_FAILS(CreateChartPainter(u"/nowhere"_s), FailureKind::FileNotFound);
    }

    /// What is seen stays until the charts show something else.
    void OnePageForTwo()
    {
        TestWorld world;
        world.define.ProgramFolder = QStringLiteral(QUOREL_TEST_PROGRAM);
        const auto document = MakeDocument<MadeUpDocument>(world.Context());
        ChartPage page(*document);
        page.resize(640, 300);
        page.show();
        QVERIFY(QTest::qWaitForWindowActive(&page));
        document->Grid().SetValue(0, 0, 5);
        document->Calc();
        page.Refresh();
        auto* second = page.findChild<ChartView*>(u"VtGrafProp"_s);
        const auto range = [second] { return ReadPicture(PictureOf(*second)).lines.value(2); };
        QCOMPARE(range().section(u',', 0, 0), u"x 1 to 2"_s);
        QTest::keyClick(second, Qt::Key_Plus);
        const QString zoomed = range();
        page.Refresh();
        QCOMPARE(range(), zoomed);
        document->Calc();
        page.Refresh();
        QCOMPARE(range().section(u',', 0, 0), u"x 1 to 2"_s);
        const auto alone = MakeDocument<PrecDocument>(world.Context());
        ChartPage one(*alone);
        QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
        QApplication::sendEvent(one.findChild<ChartView*>(), &enter);
        QVERIFY(!enter.isAccepted()); // nothing to enlarge
    }

    /// By each gesture to the whole page and by each back, with the focus; the other chart is as it was.
    void OneOfTwoTakesThePage()
    {
        TestWorld world;
        world.define.ProgramFolder = QStringLiteral(QUOREL_TEST_PROGRAM);
        const auto document = MakeDocument<MadeUpDocument>(world.Context());
        ChartPage page(*document);
        page.resize(900, 400);
        page.show();
        QVERIFY(QTest::qWaitForWindowActive(&page));
        document->Grid().SetValue(0, 0, 5);
        const auto calc = [&] {
            document->Calc();
            page.Refresh();
        };
        calc();
        auto* first = page.findChild<ChartView*>(u"VtGrafRegr"_s);
        auto* second = page.findChild<ChartView*>(u"VtGrafProp"_s);
        const auto* line = page.findChild<QLabel*>(u"Ritorno"_s);
        const auto seen = [&] { // how much of the width each has, with * the focus; how to go back
            QCoreApplication::processEvents();
            QString words;
            for (const ChartView* chart : {first, second}) {
                const int part = qRound(100.0 * chart->width() / page.width());
                words += chart->isVisible() ? QString::number(part) + u' ' : QString();
                words += page.focusWidget() == chart ? u"* "_s : QString();
            }
            return (words + (line->isVisible() ? line->text() : QString())).trimmed();
        };
        const auto key = [&](Qt::Key pressed) {
            return [=] {
                second->setFocus();
                QTest::keyClick(second, pressed);
            };
        };
        const auto twice = [&](Qt::KeyboardModifier held) {
            return [=] { QTest::mouseDClick(second, Qt::LeftButton, held); };
        };
        const auto menu = [&] {
            QTimer::singleShot(0, second, [] {
                QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Up); // to the last one
                QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Return);
            });
            second->setFocus();
            QTest::keyClick(second, Qt::Key_F10, Qt::ShiftModifier);
        };
        const std::vector<std::function<void()>> gestures = {key(Qt::Key_Return), twice(Qt::NoModifier),
                                                             twice(Qt::ControlModifier), menu,
                                                             key(Qt::Key_Escape)}; // only back
        const QString wayBack = u"100 * Doppio clic, Esc o Invio per affiancare di nuovo i grafici"_s;
        QTest::keyClick(first, Qt::Key_Plus);
        const auto firstSeen = [first] { return ReadPicture(PictureOf(*first)).lines; };
        const QStringList before = firstSeen();
        for (std::size_t i = 0; i < gestures.size(); ++i) {
            first->setFocus();
            gestures[i % (gestures.size() - 1)]();
            QCOMPARE(seen(), wayBack);
            gestures[i]();
            QCOMPARE(seen(), u"50 50 *"_s);
            QCOMPARE(firstSeen().mid(1, 4), before.mid(1, 4)); // but for the focus
        }
        gestures[0]();
        QTest::keyClick(second, Qt::Key_Plus);
        QCOMPARE(seen(), u"100 * Esc o Invio per affiancare di nuovo i grafici"_s);
        calc();
        QCOMPARE(seen(), wayBack);
        page.hide();
        page.resize(700, 400);
        page.show();
        second->setFocus();
        QCOMPARE(seen(), wayBack);
        document->ResetDocument();
        page.Refresh();
        QCOMPARE(seen(), wayBack);
        gestures[1]();
        QCOMPARE(seen(), u"50 50 *"_s);
        gestures[0](); // nothing to enlarge
        QCOMPARE(seen(), u"50 50 *"_s);
    }
};

QTEST_MAIN(ChartViewTest)
#include "ChartViewTest.moc"
