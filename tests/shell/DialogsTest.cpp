// What no story shows of the frame's dialogs: what is kept besides what is seen, pictures that are none, a
// long backup.
#include "Compare.h"
#include "TestWorld.h"
#include "framework/files/Database.h"
#include "reports/ReportLogo.h"
#include "shell/BackupDialog.h"
#include "shell/CompanyDataDialog.h"
#include "shell/MainWindow.h"
#include "shell/StartUp.h"

#include <QBuffer>
#include <QImage>
#include <QImageWriter>
#include <QLabel>
#include <QPainter>
#include <QProgressBar>
#include <QRegularExpression>
#include <QSvgGenerator>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

class DialogsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        FailOnWarnings();
        m_home = std::make_unique<QTemporaryDir>();
        m_world = std::make_unique<TestWorld>();
        InitGlobals(m_world->define, QStringLiteral(QUOREL_TEST_PROGRAM));
        QVERIFY(InitPaths(m_world->define, m_home->path() + u'/', m_world->messages));
    }

    void TheFrameLeavesRoomOnASmallScreen()
    {
        const MainWindow frame(m_world->Context());
        QCOMPARE(frame.screen()->size(), QSize(800, 800));
        QCOMPARE(frame.size(), QSize(720, 720));
    }

    /// Without the path, which stays when the logo is cancelled, no report would have a logo.
    void PathOfTheLogo()
    {
        CompanyDataDialog dialog(ReadCompany(m_world->define.DbFile), m_world->Context());
        QVERIFY(QImage(100, 200, QImage::Format_RGB32).save(Logo(), "PNG")); // whatever its name says
        m_world->dialog.FileName = u"/documents/a.LIM"_s;
        m_world->dialog.WillChoose(Logo());
        Click(dialog, u"ObjOpen"_s);
        QCOMPARE(m_world->dialog.FileName, u"/documents/a.LIM"_s); // the documents' name comes back
        QCOMPARE(m_world->define.LogoFile, QString());
        for (const bool noLogo : {false, true}) {
            if (noLogo)
                Click(dialog, u"ObjCancel"_s);
            m_world->define.LogoFile.clear();
            Click(dialog, u"cmdSave"_s);
            QCOMPARE(m_world->define.LogoFile, Logo()); // at once
            const Company company = ReadCompany(m_world->define.DbFile);
            QCOMPARE(company.logoPath, Logo());
            QCOMPARE(company.noLogo, noLogo);
        }
    }

    void RulersOfTheLogo()
    {
        LogoView view;
        view.SetLimits(1425, 5700); // 95 by 380 pixels
        view.resize(view.sizeHint());
        QBuffer file;
        QSvgGenerator svg;
        svg.setOutputDevice(&file);
        QPainter painter(&svg);
        view.render(&painter);
        painter.end();
        static const QRegularExpression kDrawn(
            u"points=\"([^\"]*) \"|matrix\\((0,[^)]*)\\)|>([^<>]*)</text>|<rect x=\"(34.*)\"/>"_s);
        QStringList drawn;
        for (auto matches = kDrawn.globalMatch(QString::fromUtf8(file.data())); matches.hasNext();)
            drawn += matches.next().capturedTexts().sliced(1).join(QString()).remove(u'"');
        QCOMPARE(drawn.join(u'|'),
                 u"29,0 29,94|27,0 31,0|27,94 31,94|34,99 413,99|34,97 34,101|413,97 413,101|10 cm|"
                 "0,-1,1,0,0,94|2.5 cm|34 y=0 width=380 height=95|34 y=0 width=379 height=94"_s);
    }

    void PhotographsAreUprightForBoth()
    {
        QImageWriter writer(Logo());
        writer.setTransformation(QImageIOHandler::TransformationRotate90);
        QVERIFY(writer.write(QImage(90, 40, QImage::Format_RGB32)));
        CompanyDataDialog dialog(ReadCompany(m_world->define.DbFile), m_world->Context());
        m_world->dialog.WillChoose(Logo());
        Click(dialog, u"ObjOpen"_s);
        QCOMPARE(dialog.findChild<LogoView*>()->ShownSize(), QSize(600, 1350));
        int height = 0;
        int width = 0;
        QVERIFY(GetLogoSize(Logo(), height, width));
        QCOMPARE(QSize(width, height), QSize(582, 1309));
    }

    void PicturesThatAreNone_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addRow("empty") << ""_ba;
        // A bitmap whose head claims 30,000 by 30,000 pixels.
        QTest::addRow("huge") << QByteArray::fromHex(
            "424d360000000000000036000000280000003075000030750000010018000000"
            "0000000000000000000000000000000000000000");
    }

    void PicturesThatAreNone()
    {
        QFETCH(QByteArray, bytes);
        CompanyDataDialog dialog(ReadCompany(m_world->define.DbFile), m_world->Context());
        QVERIFY(WriteBytes(Logo(), bytes));
        m_world->dialog.WillChoose(Logo());
        Click(dialog, u"ObjOpen"_s);
        QVERIFY(!dialog.findChild<LogoView*>()->HasPicture());
        QVERIFY(m_world->messages.All().isEmpty());
    }

    void LogoOfAReport()
    {
        ReportLogo report;
        SetReportLogo(report, m_world->define); // no logo
        QVERIFY(report.section1Suppressed);
        m_world->define.LogoFile = Logo();
        for (const bool suppressed : {false, true}) { // a file that is missing leaves all as it is
            report = {.section1Suppressed = suppressed, .picture1Height = 1, .picture1Width = 2};
            SetReportLogo(report, m_world->define);
            QCOMPARE(report.section1Suppressed, suppressed);
            QCOMPARE(QSize(report.picture1Width, report.picture1Height), QSize(2, 1));
        }
        // 2540 hundredths of a millimetre an inch, times 0.55, at 96 pixels an inch, downwards; each side by
        // itself.
        const std::array<std::pair<QSize, QSize>, 3> sizes = {
            {{{96, 95}, {1397, 1382}}, {{97, 480}, {1411, 1425}}, {{480, 10}, {5700, 145}}}};
        for (const auto& [pixels, twips] : sizes) {
            QVERIFY(QImage(pixels, QImage::Format_RGB32).save(Logo(), "PNG"));
            SetReportLogo(report, m_world->define);
            QVERIFY(!report.section1Suppressed);
            QCOMPARE(QSize(report.picture1Width, report.picture1Height), twips);
        }
        QVERIFY(WriteBytes(Logo(), "no picture"));
        int side = 0;
        QVERIFY(!GetLogoSize(Logo(), side, side));
    }

    void ALongBackup()
    {
        QWidget frame;
        frame.show();
        BackupDialog progress(&frame);
        QCOMPARE(progress.windowTitle(), u"Backup dati"_s);
        QCOMPARE(progress.minimumDuration(), 1000);
        QVERIFY(progress.Step(0, 0, u"a.LIM"_s)); // empty files alone
        progress.setMinimumDuration(0);
        QVERIFY(progress.Step(0, 4'000'000'000, u"a.LIM"_s));
        QVERIFY(progress.Step(1'000'000'000, 4'000'000'000, u"b.LIM"_s));
        QVERIFY(progress.isVisible() && progress.isModal());
        QCOMPARE(progress.findChild<QLabel*>()->text(), u"b.LIM"_s);
        QCOMPARE(progress.findChild<QProgressBar*>()->text(), u"25%"_s);
        QVERIFY(progress.Step(4'000'000'000, 4'000'000'000, u"b.LIM"_s));
        QCOMPARE(progress.findChild<QProgressBar*>()->text(), u"100%"_s); // it does not begin again
        auto* cancel = progress.findChild<QPushButton*>();
        QCOMPARE(cancel->text(), u"Annulla"_s);
        QTest::mouseClick(cancel, Qt::LeftButton);
        QVERIFY(!progress.Step(4'000'000'000, 4'000'000'000, u"b.LIM"_s));
    }

private:
    QString Logo() const { return m_home->filePath(u"logo.jpg"_s); }
    static void Click(QDialog& dialog, const QString& name) { dialog.findChild<QPushButton*>(name)->click(); }

    std::unique_ptr<QTemporaryDir> m_home;
    std::unique_ptr<TestWorld> m_world;
};

QTEST_MAIN(DialogsTest)
#include "DialogsTest.moc"
