// Charts as they are seen, moved with mouse and keys, copied and saved. The painter is the real one, from its
// module.
#include "framework/window/ChartView.h"
#include "Compare.h"
#include "TestWorld.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QImage>
#include <QMenu>
#include <QTemporaryDir>
#include <QTimer>
#include <QToolTip>
#include <QWheelEvent>

using namespace Qt::StringLiterals;

namespace
{

/// A roof from (0, 0) over (5, 2) to (10, 0), at every tenth.
ChartData Roof()
{
    ChartData chart(u"VtGrafPrec"_s);
    chart.title = u"Precisione"_s;
    chart.footnote = u"Metodo: HPLC\r\nAnalita: caffeina"_s;
    chart.x = {.title = u"Curva di precisione"_s, .scale = ChartScale{0, 10}, .majorDivisions = 4};
    chart.y.scale = ChartScale{0, 2};
    chart.y.visible = false;
    for (int i = 0; i <= 100; ++i) {
        const double x = i / 10.0;
        chart.rows.push_back({x, 2 - std::fabs(x - 5) * 0.4});
    }
    return chart;
}

ChartData Groups()
{
    ChartData chart(u"VtGrafSpec"_s);
    chart.type = ChartType::HighLow;
    chart.title = u"Specificità: medie"_s;
    chart.rowLabels = {u"A"_s, u"B"_s};
    chart.rows = {{12.5, 10.25, 11}, {14, 12, 13}};
    return chart;
}

} // namespace

class ChartViewTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        FailOnWarnings();
        m_world = std::make_unique<TestWorld>();
        m_world->define.ProgramFolder = QStringLiteral(QUOREL_TEST_PROGRAM);
        m_world->define.DecSep = u","_s;
        m_world->dialog.FileName = u"lotto.PRE"_s;
    }

    void cleanup() { m_view.reset(); }

    void TextsOfTheChart_data()
    {
        QTest::addColumn<QString>("decSep");
        QTest::addRow("comma") << u","_s;
        QTest::addRow("point") << u"."_s;
    }

    /// Ends and divisions of the axis exactly, the hidden axis without numbers.
    void TextsOfTheChart()
    {
        QFETCH(QString, decSep);
        QStringList axis = {u"0,0"_s, u"2,5"_s, u"5,0"_s, u"7,5"_s, u"10,0"_s};
        axis.replaceInStrings(u","_s, decSep);
        const QStringList around = {u"Precisione"_s, u"Metodo: HPLC"_s, u"Analita: caffeina"_s};
        QCOMPARE(TextsIn(Export(Roof(), ChartFormat::Svg, decSep)),
                 around + axis + QStringList{u"Curva di precisione"_s});
    }

    void BarsHaveTheirLabelsAndAScaleAroundThem()
    {
        const QStringList texts = TextsIn(Export(Groups(), ChartFormat::Svg));
        QVERIFY(texts.contains(u"A"_s) && texts.contains(u"B"_s));
        QVERIFY(texts.contains(u"10"_s) && texts.contains(u"14"_s)); // from 9.9 to 14.4
        QVERIFY(!texts.contains(u"9"_s) && !texts.contains(u"15"_s));
    }

    void AChartOfOnePointShowsItsTitleAlone()
    {
        ChartData chart;
        chart.title = u"Dev.standard = 0: grafico non disponibile"_s;
        chart.rows.assign(2, {0, 0});
        QCOMPARE(TextsIn(Export(chart, ChartFormat::Svg)), QStringList{chart.title});
    }

    void AxisOfNoWidthIsPainted()
    {
        ChartData chart = Roof();
        chart.x.scale = ChartScale{5, 5};
        QCOMPARE(TextsIn(Export(chart, ChartFormat::Svg)).at(5), u"5,0000"_s);
    }

    void Files()
    {
        const QByteArray pdf = Export(Roof(), ChartFormat::Pdf);
        QVERIFY(pdf.startsWith("%PDF-") && pdf.contains("%%EOF"));
        QVERIFY(!pdf.contains("/Subtype /Image") && pdf.contains("/MediaBox [0 0 596"));
        const QImage picture = QImage::fromData(Export(Roof(), ChartFormat::Png), "PNG");
        QCOMPARE(picture.size(), kChartPage * 3);
        QCOMPARE(picture.pixelColor(3, 3), QColor(Qt::white));
    }

    /// The roof's top stands in the middle of the picture, at any scale.
    void PaintedWhereItBelongs()
    {
        Show(Roof());
        const QImage image = m_view->grab().toImage();
        QPoint top(0, image.height());
        for (int y = image.height() - 1; y > 0; --y) {
            for (int x = 0; x < image.width(); ++x) {
                if (image.pixelColor(x, y) == QColor(0, 114, 178))
                    top = {x, y};
            }
        }
        QVERIFY2(std::abs(top.x() - image.width() / 2) < 5, qPrintable(QString::number(top.x())));
        QVERIFY(top.y() < image.height() / 4);
    }

    void ValuesUnderThePointer()
    {
        Show(Roof());
        QCOMPARE(TipAt(Middle()), u"x = 5; y = 2"_s);
        QTRY_VERIFY(TipAt({2, 2}).isEmpty()); // beside the axes
        Show(Groups());
        QCOMPARE(TipAt(Middle() - QPoint(150, 0)), u"A: da 10,25 a 12,5, media 11"_s);
        QCOMPARE(TipAt(Middle() + QPoint(150, 0)), u"B: da 12 a 14, media 13"_s);
        QVERIFY(m_view->accessibleDescription().contains(u"A: da 10,25 a 12,5, media 11"_s));
    }

    /// Digits that tell neighbours apart, far from zero, too.
    void ValuesFarFromZero()
    {
        ChartData chart = Roof();
        chart.x.scale = ChartScale{499.998, 500.006};
        for (auto& row : chart.rows)
            row[0] = 499.998 + row[0] * 0.0008;
        Show(chart);
        QCOMPARE(TipAt(Middle()), u"x = 500,002; y = 2"_s);
        QVERIFY(TipAt(Middle() + QPoint(100, 0)).startsWith(u"x = 500,003"_s));
        QVERIFY(m_view->accessibleDescription().endsWith(u"da 499,998 a 500,006"_s));
    }

    void WheelZoomsAroundThePointerAndDoubleClickGoesBack()
    {
        Show(Roof());
        const double whole = XAt(Middle() + QPoint(200, 0));
        for (int i = 0; i < 3; ++i)
            Wheel(Middle(), 120);
        QCOMPARE(TipAt(Middle()), u"x = 5; y = 2"_s);
        const double zoomed = XAt(Middle() + QPoint(200, 0));
        QVERIFY2(std::fabs((zoomed - 5) / (whole - 5) - 0.512) < 0.05, qPrintable(QString::number(zoomed)));
        Wheel(Middle(), -120);
        QVERIFY(XAt(Middle() + QPoint(200, 0)) > zoomed);
        QTest::mouseDClick(m_view.get(), Qt::LeftButton, {}, Middle());
        QCOMPARE(XAt(Middle() + QPoint(200, 0)), whole);
    }

    void DragMovesWhatIsSeen()
    {
        Show(Roof());
        const double before = XAt(Middle() + QPoint(100, 0));
        QTest::mousePress(m_view.get(), Qt::LeftButton, {}, Middle());
        QTest::mouseMove(m_view.get(), Middle() + QPoint(60, 0));
        QTest::mouseMove(m_view.get(), Middle() + QPoint(100, 0));
        QTest::mouseRelease(m_view.get(), Qt::LeftButton, {}, Middle() + QPoint(100, 0));
        QCOMPARE(XAt(Middle() + QPoint(100, 0)), 5.0);
        QCOMPARE(XAt(Middle() + QPoint(200, 0)), before);
    }

    void AllOfItByKeyboard()
    {
        Show(Roof());
        const double whole = XAt(Middle() + QPoint(200, 0));
        QTest::keyClick(m_view.get(), Qt::Key_Plus);
        QVERIFY(XAt(Middle() + QPoint(200, 0)) < whole);
        QTest::keyClick(m_view.get(), Qt::Key_Minus);
        QCOMPARE(XAt(Middle() + QPoint(200, 0)), whole);
        QTest::keyClick(m_view.get(), Qt::Key_Right);
        QVERIFY(XAt(Middle()) > 5);
        QTest::keyClick(m_view.get(), Qt::Key_Left);
        QTest::keyClick(m_view.get(), Qt::Key_Left);
        QVERIFY(XAt(Middle()) < 5);
        QTest::keyClick(m_view.get(), Qt::Key_Home);
        QCOMPARE(XAt(Middle()), 5.0);
        const QImage all = m_view->grab().toImage();
        QTest::keyClick(m_view.get(), Qt::Key_Up);
        QVERIFY(m_view->grab().toImage() != all);
        QTest::keyClick(m_view.get(), Qt::Key_Down);
        QCOMPARE(m_view->grab().toImage(), all);
    }

    void GroupsStayInViewWhileZooming()
    {
        Show(Groups());
        for (int i = 0; i < 5; ++i)
            Wheel(Middle(), 120);
        QCOMPARE(TipAt(Middle() - QPoint(250, 0)), u"A: da 10,25 a 12,5, media 11"_s);
    }

    void CopiedAsPicture()
    {
        Show(Roof());
        Choose(u"&Copia come immagine"_s);
        QCOMPARE(QGuiApplication::clipboard()->image().size(), m_view->size() * 3);
    }

    /// The name of the document, which the dialog holds for all, stays.
    void SavedAsEveryKind()
    {
        const QTemporaryDir folder;
        Show(Roof());
        const QMap<QString, QByteArray> kinds = {
            {u"pdf"_s, "%PDF-"}, {u"svg"_s, "<?xml"}, {u"png"_s, "\x89PNG"}};
        const QMap<QString, QString> captions = {{u"pdf"_s, u"Salva come &PDF..."_s},
                                                 {u"svg"_s, u"Salva come &SVG..."_s},
                                                 {u"png"_s, u"Salva come P&NG..."_s}};
        for (const auto& [extension, start] : kinds.asKeyValueRange()) {
            const QString file = folder.filePath(u"curva."_s + extension);
            m_world->dialog.WillChoose(file);
            Choose(captions[extension]);
            QVERIFY2(BytesOf(file).startsWith(start), qPrintable(extension));
            QCOMPARE(m_world->dialog.FileName, u"lotto.PRE"_s);
        }
        m_world->dialog.WillChoose(QString());
        Choose(captions[u"pdf"_s]); // cancelled
        m_world->dialog.WillChoose(folder.filePath(u"no/curva.pdf"_s));
        Choose(captions[u"pdf"_s]);
        QVERIFY(m_world->messages.TakeOnly().startsWith(u"Il grafico non è stato salvato nel file\n"_s));
    }

    void NothingToDoWithoutAChart()
    {
        Show(ChartData(u"VtGrafPrec"_s));
        QCOMPARE(m_view->accessibleDescription(), u"Nessun grafico"_s);
        Wheel(Middle(), 120);
        QVERIFY(TipAt(Middle()).isEmpty());
        QVERIFY(!MenuEntryEnabled());
    }

    void ModuleIsMissing()
    {
        m_world->define.ProgramFolder = u"/nowhere"_s;
        Show(Roof());
        const QImage image = m_view->grab().toImage();
        m_view->ShowChart(Roof()); // says so again, and fails no differently
        QCOMPARE(m_view->grab().toImage(), image);
        QVERIFY(!MenuEntryEnabled());
        QVERIFY_THROWS_EXCEPTION(RuntimeFailure, CreateChartPainter(u"/nowhere"_s));
    }

private:
    QByteArray Export(const ChartData& chart, ChartFormat format, const QString& decSep = u","_s)
    {
        const auto painter = CreateChartPainter(m_world->define.ProgramFolder);
        painter->SetChart(chart, decSep);
        return painter->Export(format, kChartPage);
    }

    /// The texts of a picture, in their order, its title left out.
    static QStringList TextsIn(const QByteArray& svg)
    {
        QStringList texts;
        for (const QString& part : QString::fromUtf8(svg).split(u"<text"_s).sliced(1))
            texts += part.section(u'>', 1, 1).section(u"</text"_s, 0, 0).trimmed();
        return texts;
    }

    void Show(const ChartData& chart)
    {
        m_view = std::make_unique<ChartView>(chart.name, u"Grafico"_s, m_world->Context());
        m_view->ShowChart(chart);
        m_view->resize(800, 500);
        m_view->show();
        QVERIFY(QTest::qWaitForWindowActive(m_view.get()));
        m_view->grab(); // paints, so that places have their meaning
    }

    /// The middle of what the axes span sideways, a little above that of the window.
    QPoint Middle() const { return m_view->rect().center() - QPoint(0, 40); }

    QString TipAt(const QPoint& at)
    {
        m_view->grab();
        QToolTip::hideText();
        QMouseEvent event(QEvent::MouseMove, at, m_view->mapToGlobal(at), Qt::NoButton, Qt::NoButton, {});
        QApplication::sendEvent(m_view.get(), &event);
        return QToolTip::text();
    }

    double XAt(const QPoint& at)
    {
        return TipAt(at).section(u"x = "_s, 1).section(u';', 0, 0).replace(u',', u'.').toDouble();
    }

    void Wheel(const QPoint& at, int delta)
    {
        QWheelEvent event(at, m_view->mapToGlobal(at), {}, {0, delta}, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(m_view.get(), &event);
    }

    /// What the context menu does while it is open.
    template<typename Routine>
    void InMenu(Routine routine)
    {
        QTimer::singleShot(0, this, [routine] {
            auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            QVERIFY(menu != nullptr);
            routine(*menu);
            menu->close();
        });
        QContextMenuEvent event(QContextMenuEvent::Mouse, Middle(), m_view->mapToGlobal(Middle()));
        QApplication::sendEvent(m_view.get(), &event);
    }

    void Choose(const QString& caption)
    {
        InMenu([caption](const QMenu& menu) {
            for (QAction* action : menu.actions()) {
                if (action->text() == caption)
                    action->trigger();
            }
        });
    }

    bool MenuEntryEnabled()
    {
        bool enabled = true;
        InMenu([&enabled](const QMenu& menu) { enabled = menu.actions().front()->isEnabled(); });
        return enabled;
    }

    std::unique_ptr<TestWorld> m_world;
    std::unique_ptr<ChartView> m_view;
};

QTEST_MAIN(ChartViewTest)
#include "ChartViewTest.moc"
