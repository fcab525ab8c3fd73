// What no story shows of the frame's dialogs: what is kept besides what is seen, pictures that are none, a
// long backup.
#include "Compare.h"
#include "TestWorld.h"
#include "framework/files/Database.h"
#include "framework/window/Forms.h"
#include "framework/window/MessageBoxes.h"
#include "reports/ReportLogo.h"
#include "shell/BackupDialog.h"
#include "shell/CompanyDataDialog.h"
#include "shell/MainWindow.h"
#include "shell/RecentDocuments.h"
#include "shell/StartUp.h"

#include <QBuffer>
#include <QImage>
#include <QImageWriter>
#include <QLabel>
#include <QPainter>
#include <QProgressBar>
#include <QRegularExpression>
#include <QScrollBar>
#include <QSettings>
#include <QSvgGenerator>
#include <QTemporaryDir>
#include <QTimer>
#include <QVBoxLayout>

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

    void ADialogFitsItsScreen()
    {
        QDialog dialog;
        auto* body = new QWidget;
        auto* lines = new QVBoxLayout(body);
        for (int i = 0; i < 60; ++i)
            lines->addWidget(new QLineEdit(QString(40, u'x')));
        auto* last = qobject_cast<QLineEdit*>(lines->itemAt(59)->widget());
        auto* button = new QPushButton(u"OK"_s);
        auto* buttons = new QHBoxLayout;
        buttons->addWidget(button);
        BuildForm(&dialog, body, buttons);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        const QRect screen = dialog.screen()->availableGeometry();
        QVERIFY(screen.contains(dialog.frameGeometry()));
        QVERIFY(last->visibleRegion().isEmpty() && !button->visibleRegion().isEmpty());
        for (int i = 0; i < 59; ++i)
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), last);
        QVERIFY(!last->visibleRegion().isEmpty());
        for (const QRect& part :
             {QRect(350, 350, 100, 100), QRect(0, 350, 800, 400), QRect(0, 0, 500, 800)}) {
            dialog.resize(200, 100);
            dialog.move(350, 350);
            KeepClearOf(&dialog, part);
            QVERIFY(screen.contains(dialog.geometry()) && !part.intersects(dialog.geometry()));
        }
    }

    void ADialogHasAPixelToSpare()
    {
        QDialog dialog;
        auto* body = new QWidget;
        (new QVBoxLayout(body))->addWidget(new QLabel(QString(40, u'x')));
        BuildForm(&dialog, body, new QHBoxLayout);
        dialog.resize(dialog.size() - QSize(1, 1)); // as a desktop at 150 % does
        dialog.show();
        for (QScrollBar* bar : dialog.findChildren<QScrollBar*>())
            QVERIFY(!bar->isVisible());
    }

    void MessagesBreakLongPaths()
    {
        MessageBoxes boxes;
        QTimer::singleShot(0, this, [] {
            QWidget* box = QApplication::activeModalWidget();
            QVERIFY(box->screen()->availableGeometry().contains(box->frameGeometry()));
            QVERIFY(box->findChild<QLabel*>(u"qt_msgbox_label"_s)->width() < 600);
            box->close();
        });
        boxes.Show(MessageIcon::None, {}, u"Il file\n/"_s + QString(60, u'a') + u"/b.b"_s.repeated(60));
        QCOMPARE(Breakable(u"a/b c"_s), u"a/b c"_s); // needs no break
    }

    void TheLastTenDocuments()
    {
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_home->path());
        for (int i = 0; i < 12; ++i)
            NoteDocument(u"/a%1.LIM"_s.arg(i));
        NoteDocument(u"/x/../a5.LIM"_s);
        QCOMPARE(RecentDocuments().join(u' ').remove(u".LIM"_s),
                 u"/a5 /a11 /a10 /a9 /a8 /a7 /a6 /a4 /a3 /a2"_s);
        QMenu menu;
        NoteDocument(u'/' + u"long & "_s.repeated(40) + u".LIM"_s);
        AddRecentDocuments(&menu);
        QVERIFY(menu.actions().constFirst()->text().startsWith(u"&1 /long && long"_s));
        QVERIFY(menu.sizeHint().width() < 700);
        QCOMPARE(menu.actions().constLast()->text(), u"1&0 /a3.LIM"_s);
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
        writer.setTransformation(QImageIOHandler::TransformationMirrorAndRotate90);
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
        BackupDialog quick(&frame);
        for (const qint64 done : {0, 1, 2})
            QVERIFY(quick.Step(done, 4'000'000'000, u"a.LIM"_s));
        QVERIFY(!quick.isVisible()); // a guess at the time that is left does not count
        BackupDialog progress(&frame, std::chrono::milliseconds(0));
        QCOMPARE(progress.windowTitle(), u"Backup dati"_s);
        QVERIFY(progress.Step(0, 0, u"a.LIM"_s)); // empty files alone
        QVERIFY(progress.Step(1'000'000'000 - 10'000'000, 4'000'000'000, u"b.LIM"_s));
        bool breathes = false;
        QTimer::singleShot(0, this, [&breathes] { breathes = true; });
        QVERIFY(progress.Step(1'000'000'000, 4'000'000'000, u"b.LIM"_s));
        QVERIFY(progress.isVisible() && progress.isModal() && breathes);
        QCOMPARE(progress.findChild<QLabel*>()->text(), u"b.LIM"_s);
        QCOMPARE(progress.findChild<QProgressBar*>()->text(), u"25%"_s);
        QVERIFY(progress.Step(4'000'000'000, 4'000'000'000, u"b.LIM"_s));
        QCOMPARE(progress.findChild<QProgressBar*>()->text(), u"100%"_s); // it does not begin again
        auto* cancel = progress.findChild<QPushButton*>();
        QCOMPARE(cancel->text(), u"Annulla"_s);
        QTest::mouseClick(cancel, Qt::LeftButton);
        QVERIFY(!progress.Step(4'000'000'000, 4'000'000'000, u"b.LIM"_s));
        progress.End();
        QVERIFY(!progress.isVisible());
    }

private:
    QString Logo() const { return m_home->filePath(u"logo.jpg"_s); }
    static void Click(QDialog& dialog, const QString& name) { dialog.findChild<QPushButton*>(name)->click(); }

    std::unique_ptr<QTemporaryDir> m_home;
    std::unique_ptr<TestWorld> m_world;
};

QTEST_MAIN(DialogsTest)
#include "DialogsTest.moc"
