// Charts as they are painted: the pictures of tests/data/charts, by the real painter from its module.
#include "Compare.h"
#include "TestWorld.h"
#include "framework/chart/ChartPainter.h"
#include "framework/chart/GroupColours.h"
#include "stories/ChartPicture.h"
#include "stories/ChartStory.h"
#include "stories/ExpectedText.h"
#include "validation/repeatability/PrecDocument.h"
#include "validation/specificity/SpecDocument.h"

#include <QImage>

#include <algorithm>
#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace
{

std::unique_ptr<ChartPainter> NewPainter()
{
    return CreateChartPainter(QStringLiteral(QUOREL_TEST_PROGRAM));
}

/// A chart that has of everything, zoomed and dragged: what comes after it has nothing of it.
std::unique_ptr<ChartPainter> UsedPainter()
{
    auto painter = NewPainter();
    ChartData chart;
    chart.title = u"Prima"_s;
    chart.footnote = u"prima"_s;
    chart.legend = true;
    chart.x = {.title = u"ascisse"_s, .scale = ChartScale{0, 7}, .majorDivisions = 7};
    chart.y = {.title = u"ordinate"_s, .scale = ChartScale{-3, 3}, .majorDivisions = 3};
    chart.series = {{.name = u"una"_s, .marks = true, .fitted = true}, {.name = u"altra"_s}};
    chart.rows = {{1, 1, 2, 2}, {3, -1, 4, -2}};
    painter->SetChart(chart, u"."_s);
    painter->Export(ChartFormat::Svg, kChartPage);
    painter->Zoom({300, 200}, 0.3);
    painter->Drag({30, 20});
    return painter;
}

double ContrastOnWhite(const ChartColour& colour)
{
    const auto light = [](double part) {
        return part <= 10 ? part / 255 / 12.92 : std::pow((part / 255 + 0.055) / 1.055, 2.4);
    };
    return 1.05 /
           (0.2126 * light(colour.red) + 0.7152 * light(colour.green) + 0.0722 * light(colour.blue) + 0.05);
}

class PaintedStory : public ChartStory
{
protected:
    QStringList Do(const QString& verb, const QString& rest) override
    {
        const QList<double> numbers = NumbersOf(rest);
        if (verb == u"document" || verb == u"english") {
            m_chart = OfDocument(rest, verb == u"english" ? Language::English : Language::Italian);
            return {};
        }
        if (verb == u"zoom") // around these numbers
            m_painter->Zoom(m_picture.Place({numbers[0], numbers[1]}), numbers[2]);
        else if (verb == u"drag") // from these numbers to those
            m_painter->Drag(m_picture.Place({numbers[2], numbers[3]}) -
                            m_picture.Place({numbers[0], numbers[1]}));
        else if (verb == u"all")
            m_painter->ShowAll();
        else if (verb == u"paint" ||
                 verb == u"screen") // WIDTH HEIGHT DECIMAL-SEPARATOR: as a file, on screen
            return Painted(QSize(qRound(numbers[0]), qRound(numbers[1])), rest.last(1), verb == u"screen");
        else if (verb == u"at") // these numbers
            return {u'"' + ChartValueText(m_chart, {numbers[0], numbers[1]}, m_decSep) + u'"'};
        else
            return {u"NO SUCH STEP"_s};
        const QStringList before = m_picture.lines;
        m_picture = ReadPicture(By(*m_painter));
        return Changes(before, m_picture.lines);
    }

private:
    QByteArray By(ChartPainter& painter) const
    {
        const auto paint = [&](QPaintDevice& device) { painter.Paint(device, m_size); };
        return m_onScreen ? SvgOf(m_size, paint) : painter.Export(ChartFormat::Svg, m_size);
    }

    QStringList Painted(const QSize& size, const QString& decSep, bool onScreen)
    {
        m_size = size;
        m_onScreen = onScreen;
        m_decSep = decSep;
        const auto fresh = NewPainter();
        fresh->SetChart(m_chart, decSep);
        m_painter->SetChart(m_chart, decSep);
        const QByteArray svg = By(*m_painter);
        m_picture = ReadPicture(svg);
        QStringList lines = m_picture.lines;
        if (svg != By(*fresh))
            lines += u"OTHERWISE THAN BY A NEW PAINTER"_s;
        return lines + QStringList{u"described: "_s + ChartDescription(m_chart, decSep)};
    }

    static ChartData OfDocument(const QString& name, Language language)
    {
        TestWorld world;
        std::unique_ptr<TestDocument> document;
        if (name.endsWith(u"PRE"))
            document = MakeDocument<PrecDocument>(world.Context());
        else
            document = MakeDocument<SpecDocument>(world.Context());
        document->ReadFromFile(DataFile(name));
        document->Calc();
        return document->Chart(0, language);
    }

    std::unique_ptr<ChartPainter> m_painter = UsedPainter(); ///< for all charts of the story
    QSize m_size;
    bool m_onScreen = false;
    QString m_decSep;
    ChartPicture m_picture;
};

} // namespace

class PlotPainterTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { FailOnWarnings(); }

    void Painted_data() { AddKeptTexts({u"charts"_s}); }

    void Painted()
    {
        QFETCH(QString, file);
        const QString difference = PaintedStory().Difference(file);
        QVERIFY2(difference.isEmpty(), qPrintable(difference));
    }

    /// Red, and then whatever comes of all that is seen on white.
    void Colours()
    {
        const auto colours = GroupColours(3000, 1);
        QCOMPARE(colours.size(), 3000U);
        QVERIFY(colours.front() == (ChartColour{.red = 255, .green = 0, .blue = 0}));
        QVERIFY(std::fabs(ContrastOnWhite(colours.front()) - 3.998) < 0.0005);
        std::array<QSet<int>, 3> parts;
        double least = 21;
        for (const ChartColour& colour : colours) {
            least = std::min(least, ContrastOnWhite(colour));
            parts[0] += colour.red;
            parts[1] += colour.green;
            parts[2] += colour.blue;
        }
        QVERIFY2(least >= 3 && least < 3.01, qPrintable(QString::number(least)));
        // Green gives 0.7152 of the light, of which 3:1 leaves 0.3: none above 172.
        QVERIFY(parts[0].size() > 250 && parts[1].size() > 150 && parts[2].size() > 250);
        QVERIFY(GroupColours(5, 1) == decltype(colours)(colours.begin(), colours.begin() + 5));
        QVERIFY(GroupColours(2, 2) != GroupColours(2, 1));
        QVERIFY(GroupColours(0, 1).empty());
        const std::uint32_t seed = ClockSeed();
        QTRY_VERIFY(ClockSeed() != seed);
    }

    /// The same painting as vectors on a page of its size, and as a picture three times as fine.
    void Files()
    {
        ChartData chart;
        chart.title = u"Medie"_s;
        chart.rows = {{0, 0}, {10, 10}};
        const auto painter = NewPainter();
        painter->SetChart(chart, u","_s);
        const QByteArray pdf = painter->Export(ChartFormat::Pdf, kChartPage);
        QVERIFY(pdf.startsWith("%PDF-") && pdf.contains("%%EOF") && !pdf.contains("/Subtype /Image"));
        QVERIFY(pdf.contains("/MediaBox [0 0 596.000000 419.000000]"));
        QVERIFY(pdf.contains(QByteArray("/Title (\xfe\xff\0M\0e\0d\0i\0e)", 20)));
        const QByteArray before = "/FlateDecode\n>>\nstream\n";
        const QByteArray page = qUncompress(QByteArray("\1\0\0\0", 4) + // room enough
                                            pdf.mid(pdf.indexOf(before) + before.size()));
        QVERIFY2(page.contains("0.750000000 0 0 -0.750000000 0 419 cm") && page.contains("0 0 794 559 re"),
                 page.first(100).constData());
        const QImage picture = QImage::fromData(painter->Export(ChartFormat::Png, kChartPage), "PNG");
        QCOMPARE(picture.size(), kChartPage * 3);
        QCOMPARE(qRound(1000.0 * picture.width() / picture.dotsPerMeterX()), 210); // mm, as the page
        QCOMPARE(picture.pixelColor(3, 3), QColor(Qt::white));
        QSet<QRgb> colors;
        for (int x = 0; x < picture.width(); ++x)
            colors += picture.pixel(x, picture.height() / 2);
        QVERIFY(colors.size() > 4); // the line is smooth
        const QPointF middle = ReadPicture(painter->Export(ChartFormat::Svg, kChartPage)).Place({5, 5});
        QCOMPARE(picture.pixelColor((middle * 3).toPoint()), QColor(0, 114, 178));
    }
};

QTEST_MAIN(PlotPainterTest)
#include "PlotPainterTest.moc"
