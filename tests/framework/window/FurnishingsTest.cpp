// What every test window has around its document, for the tests that have no window yet, too: menus and
// toolbar of each, the bands of the background, room in a small window.
#include "framework/window/Furnishings.h"
#include "Compare.h"
#include "OneFont.h"
#include "WindowWorld.h"
#include "framework/window/ResultField.h"
#include "framework/window/TestMenus.h"
#include "validation/limits/LimiDocument.h"
#include "validation/limits/LimiWindow.h"
#include "validation/specificity/SpecDocument.h"
#include "validation/specificity/SpecWindow.h"

#include <QColor>
#include <QGroupBox>
#include <QImage>
#include <QMenuBar>
#include <QScrollArea>
#include <QScrollBar>
#include <QSet>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace
{

/// As WCAG 2 measures it.
double Contrast(const QColor& one, const QColor& other)
{
    const auto luminance = [](const QColor& color) {
        const auto linear = [](double part) {
            return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
               0.0722 * linear(color.blueF());
    };
    const auto [dark, light] = std::minmax({luminance(one), luminance(other)});
    return (light + 0.05) / (dark + 0.05);
}

/// Of what is wholly covered.
QSet<QRgb> Colours(const QImage& image)
{
    QSet<QRgb> colours;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(image.pixel(x, y)) == 255)
                colours.insert(image.pixel(x, y));
        }
    }
    return colours;
}

} // namespace

class FurnishingsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { LayOutByOneFont(); }
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
    }

    /// On every ground: white, the page, and the band at the foot of a high screen.
    void TextsAreRead()
    {
        WindowWorld<LimiWindow, LimiDocument> open;
        const QPalette palette = open.window->palette();
        for (const QColor ground : {QColor(Qt::white), QColor(kPageColor), QColor(0xE4, 0xDE, 0x41)}) {
            for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
                QVERIFY(Contrast(palette.color(role), ground) > 7);
                QVERIFY(Contrast(palette.color(QPalette::Disabled, role), ground) > 3);
            }
        }
        for (const QColor ground : {QColor(Qt::white), QColor(kDimmedGround)})
            QVERIFY(Contrast(QColor(kDimmedColor), ground) > 4.5);
        const QColor panel =
            open.Find<QLabel>("Tara")->palette().color(QPalette::Disabled, QPalette::WindowText);
        QCOMPARE(panel, palette.color(QPalette::Disabled, QPalette::WindowText));
        for (const QAction* action : open.Find<QToolBar>("Toolbar1")->actions()) {
            for (const auto& [mode, color] : {std::pair(QIcon::Normal, QColor(0x23, 0x26, 0x29)),
                                              {QIcon::Disabled, QColor(kDisabledColor)}}) {
                const QImage image = action->icon().pixmap(QSize(88, 88), 1, mode).toImage();
                QVERIFY2(action->isSeparator() || Colours(image) == QSet{color.rgb()},
                         qPrintable(action->objectName()));
            }
        }
    }

    /// In the frame of a screen of 1280 x 800, of which its own title and menus and the window's title take a
    /// part.
    void DefaultSizeShowsAll()
    {
        WindowWorld<SpecWindow, SpecDocument> open;
        QVERIFY(QRect(0, 0, 1100, 640).contains(QRect(QPoint(), open.window->sizeHint())));
        open.ShowData();
        const auto* area = qobject_cast<QScrollArea*>(open.Tabs()->currentWidget());
        QTRY_VERIFY(!area->verticalScrollBar()->isVisible() && !area->horizontalScrollBar()->isVisible());
        const GridView* grid = open.GridAt(0);
        QVERIFY(grid->viewport()->height() >= 10 * grid->rowHeight(0));
        QCOMPARE(grid->width(), grid->sizeHint().width());
        auto* verdict = open.Find<ResultField>("Giudizio");
        verdict->ShowResult(u"Differenza NON SIGNIFICATIVA (P = 95%)"_s);
        QTRY_VERIFY(verdict->width() > verdict->fontMetrics().horizontalAdvance(verdict->text()));
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
