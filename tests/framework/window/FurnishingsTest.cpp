// What every test window has around its document, for the tests that have no window yet, too: menus and
// toolbar of each, the bands of the background, room in a small window.
#include "Compare.h"
#include "WindowWorld.h"
#include "framework/window/TestMenus.h"
#include "validation/limits/LimiDocument.h"
#include "validation/limits/LimiWindow.h"

#include <QGroupBox>
#include <QImage>
#include <QMenuBar>

using namespace Qt::StringLiterals;

class FurnishingsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { FailOnWarnings(); }

    void MenusOfEachTest_data()
    {
        QTest::addColumn<QString>("methods");
        QTest::addColumn<QString>("ownItems"); // beside those that all have
        const QString kChart = u"FileStampaGrafico "_s;
        const QString kColumns = u"FileCancella CopiaColonna IncollaColonna "_s;
        const QString kConcentrations = u"StrumentiConcentrazioni "_s;
        QTest::addRow("LIMI") << u"&Specificità...|&Taratura...|&Ripetibilità...|&Accuratezza...|"
                                 "&Riproducibilità...|Precisione &intermedia..."_s
                              << kColumns;
        QTest::addRow("PREC") << u"&Specificità...|&Taratura...|&Accuratezza...|&Limite ril. e det....|"
                                 "&Riproducibilità...|Precisione &intermedia..."_s
                              << kChart + kColumns;
        QTest::addRow("PRIN") << u"&Specificità...|&Taratura...|&Ripetibilità...|&Accuratezza...|"
                                 "&Limite rip. e det....|&Riproducibilità..."_s
                              << kChart + kConcentrations;
        QTest::addRow("SPEC") << u"&Taratura...|&Ripetibilità...|&Accuratezza...|&Limite rip. e det....|"
                                 "&Riproducibilità...|Precisione &intermedia..."_s
                              << kChart;
        QTest::addRow("TARA") << u"&Specificità...|&Ripetibilità...|&Accuratezza...|&Limite rip. e det....|"
                                 "&Riproducibilità...|Precisione &intermedia..."_s
                              << kChart + kColumns + kConcentrations;
        QTest::addRow("ACCU") << u"&Specificità...|&Taratura...|&Ripetibilità...|&Limite ril. e det...|"
                                 "&Riproducibilità...|Precisione &intermedia..."_s
                              << kChart;
        QTest::addRow("RIPR") << u"&Specificità...|&Taratura...|&Ripetibilità...|&Accuratezza...|"
                                 "&Limite rip. e det....|Precisione &intermedia..."_s
                              << kChart + kConcentrations;
    }

    void MenusOfEachTest()
    {
        QFETCH(QString, methods);
        QFETCH(QString, ownItems);
        const TestInfo& info = *FindTest(QTest::currentDataTag());
        QWidget parent;
        const QList<QMenu*> menus = BuildMenus(&parent, info, [](const QString&) { return [] {}; });
        QStringList captions;
        for (const QAction* action : menus[3]->actions())
            captions += action->text();
        QCOMPARE(captions.join(u'|'), methods);
        QString own;
        for (const char* name : {"FileStampaGrafico", "FileCancella", "CopiaColonna", "IncollaColonna",
                                 "StrumentiConcentrazioni"}) {
            if (parent.findChild<QAction*>(QString::fromLatin1(name)) != nullptr)
                own += QString::fromLatin1(name) + u' ';
        }
        QCOMPARE(own, ownItems);
        QToolBar toolbar;
        BuildToolbar(&toolbar, info, [](const QString&) { return [] {}; });
        QCOMPARE(toolbar.findChild<QAction*>(u"PrintGraph"_s) != nullptr, info.key != "LIMI"_L1);
        // The other tests stand in the order of the menu on the panels, too.
        QCOMPARE(OtherTests(info).size(), menus[3]->actions().size());
    }

    void ItemsSayWhyTheyAreGrey()
    {
        QAction item;
        SetGrey(&item, Grey::NoData, true);
        SetGrey(&item, Grey::NoText, true);
        SetGrey(&item, Grey::NoData, false);
        QCOMPARE(GreyReasons(&item), Greys(Grey::NoText));
        QVERIFY(!item.isEnabled());
        SetGrey(&item, Grey::NoText, false);
        QVERIFY(item.isEnabled());
    }

    /// 1000 twips high, 66.7 points, each darker and yellower than the one above.
    void Bands()
    {
        WindowWorld<LimiWindow, LimiDocument> open;
        const QImage image = open.window->grab().toImage().scaled(open.window->size());
        for (const auto& [y, color] :
             {std::pair(0, 0xF3EDAA), {65, 0xF3EDAA}, {68, 0xF2ECA3}, {206, 0xF0EA95}})
            QCOMPARE(image.pixelColor(1, y), QColor(QRgb(0xFF000000U | static_cast<QRgb>(color))));
        const QPalette palette = open.window->palette();
        QCOMPARE(palette.color(QPalette::Window), QColor(0xF4, 0xEE, 0xB1));
        QCOMPARE(palette.color(QPalette::Base), QColor(Qt::white));
        for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
            QVERIFY(palette.color(role).lightness() < 64);
            QVERIFY(palette.color(QPalette::Disabled, role).lightness() > 96);
        }
    }

    void SmallWindowScrolls()
    {
        WindowWorld<LimiWindow, LimiDocument> open;
        open.window->resize(open.window->minimumSizeHint());
        QVERIFY(open.window->height() < open.window->sizeHint().height());
        open.ShowData();
        const auto* values = open.Find<QGroupBox>("Frame5");
        const auto* results = open.Find<QGroupBox>("Frame2");
        QVERIFY(!values->geometry().intersects(results->geometry()));
        QVERIFY(values->height() >= values->minimumSizeHint().height());
    }
};

QTEST_MAIN(FurnishingsTest)
#include "FurnishingsTest.moc"
