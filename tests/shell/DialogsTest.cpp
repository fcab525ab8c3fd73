// The options and the company data: what they show, store and refuse.
#include "Compare.h"
#include "TestWorld.h"
#include "framework/files/Database.h"
#include "reports/ReportLogo.h"
#include "shell/CompanyDataDialog.h"
#include "shell/OptionsDialog.h"
#include "shell/StartUp.h"

#include <QImage>
#include <QLabel>
#include <QRadioButton>
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
        m_world->define.DecSep = u","_s;
        QVERIFY(InitPaths(m_world->define, m_home->path() + u'/', m_world->messages));
    }

    void OptionsAreStored()
    {
        OptionsDialog dialog(m_world->Context());
        QCOMPARE(Field(dialog, "txtOpenSave")->text(), m_world->define.OpenSaveFolder);
        QVERIFY(!dialog.findChild<QCheckBox*>()->isChecked());
        m_world->dialog.WillChoose(m_home->path());
        Click(dialog, "cmdSfo1");
        QCOMPARE(m_world->dialog.Browsed(),
                 QStringList(u"Cartella salvataggio file metodi|"_s + m_world->define.OpenSaveFolder));
        QCOMPARE(Field(dialog, "txtOpenSave")->text(), m_home->path() + u'/');
        m_world->dialog.WillChoose(QString());
        Click(dialog, "cmdSfo1");                            // cancelled: the text stays
        Field(dialog, "txtBackup")->setText(m_home->path()); // no separator is appended
        dialog.findChild<QCheckBox*>()->setChecked(true);
        Click(dialog, "cmdOK");
        QCOMPARE(dialog.result(), static_cast<int>(QDialog::Accepted));
        QCOMPARE(BytesOf(m_world->define.IniFile),
                 u"[Percorsi]\nOpenSave=%1/\nBackup=%1\n[Parametri]\nBkAutoSave=1\n"_s.arg(m_home->path())
                     .toUtf8());
        QCOMPARE(m_world->define.OpenSaveFolder, m_home->path() + u'/');
        QCOMPARE(m_world->define.BackupFolder, m_home->path());
        QCOMPARE(m_world->define.BkAutoSave, u"1"_s);
    }

    void OptionsRefuseAFolderThatCannotBeUsed()
    {
        const QByteArray before = BytesOf(m_world->define.IniFile);
        OptionsDialog dialog(m_world->Context());
        dialog.show();
        Field(dialog, "txtBackup")->setText(u"/proc/"_s);
        Click(dialog, "cmdOK");
        QCOMPARE(m_world->messages.All().size(), 2);
        QCOMPARE(m_world->messages.All()[0].text, u"Permessi insufficienti per la cartella /proc/"_s);
        QVERIFY(m_world->messages.All()[1].text.endsWith(u"Specificare un altro percorso"_s));
        QVERIFY(dialog.isVisible());
        Click(dialog, "cmdCancel");
        QCOMPARE(BytesOf(m_world->define.IniFile), before);
    }

    void CompanyDataAreStored()
    {
        CompanyDataDialog dialog(ReadCompany(Db()), m_world->Context());
        Field(dialog, "txtFields0")->setText(u"Laboratorio Rossi"_s);
        Field(dialog, "txtFields9")->setText(u"www.rossi.example"_s);
        ChooseLogo(dialog, QSize(100, 200));
        Click(dialog, "cmdSave");
        QCOMPARE(m_world->messages.TakeOnly(), u"I dati sono stati salvati"_s);
        QCOMPARE(m_world->define.LogoFile, Logo());
        const Company company = ReadCompany(Db());
        QCOMPARE(company.texts[0], u"Laboratorio Rossi"_s);
        QCOMPARE(company.texts[9], u"www.rossi.example"_s);
        QCOMPARE(company.logoPath, Logo());
        QVERIFY(!company.noLogo);

        CompanyDataDialog again(company, m_world->Context());
        QCOMPARE(Field(again, "txtFields0")->text(), u"Laboratorio Rossi"_s);
        QVERIFY(again.findChild<LogoView*>()->HasPicture());
    }

    void CancelledLogoKeepsItsPath()
    {
        CompanyDataDialog dialog(ReadCompany(Db()), m_world->Context());
        QVERIFY(!Button(dialog, "ObjCancel")->isEnabled());
        ChooseLogo(dialog, QSize(10, 10));
        Click(dialog, "ObjCancel");
        QVERIFY(!Button(dialog, "ObjCancel")->isEnabled());
        QVERIFY(!dialog.findChild<LogoView*>()->HasPicture());
        Click(dialog, "cmdSave");
        QVERIFY(ReadCompany(Db()).noLogo);
        QCOMPARE(ReadCompany(Db()).logoPath, Logo());
        CompanyDataDialog again(ReadCompany(Db()), m_world->Context());
        QVERIFY(!again.findChild<LogoView*>()->HasPicture());
        ReportLogo report{.section1Suppressed = true};
        SetReportLogo(report, m_world->define); // and yet a report shows it
        QVERIFY(!report.section1Suppressed);
    }

    void LogoIsKeptWithinItsLimits()
    {
        CompanyDataDialog dialog(ReadCompany(Db()), m_world->Context());
        auto* view = dialog.findChild<LogoView*>();
        ChooseLogo(dialog, QSize(100, 200)); // 1500 by 3000 twips
        QCOMPARE(view->ShownSize(), QSize(1500, 1425));
        QCOMPARE(Field(dialog, "txtX")->text(), u"2,65"_s);
        QCOMPARE(Field(dialog, "txtY")->text(), u"2,51"_s);
        ChooseLogo(dialog, QSize(1000, 20));
        QCOMPARE(view->ShownSize(), QSize(5700, 300));
        const QImage whole = view->grab().toImage();
        dialog.findChild<QRadioButton*>(u"optDim1"_s)->click();
        QVERIFY(view->grab().toImage() != whole); // cut, no longer squeezed
    }

    void PicturesThatAreNone_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addRow("text") << "no picture"_ba;
        QTest::addRow("empty") << ""_ba;
        // A bitmap whose head claims 30,000 by 30,000 pixels.
        QTest::addRow("huge") << QByteArray::fromHex(
            "424d360000000000000036000000280000003075000030750000010018000000"
            "0000000000000000000000000000000000000000");
    }

    void PicturesThatAreNone()
    {
        QFETCH(QByteArray, bytes);
        CompanyDataDialog dialog(ReadCompany(Db()), m_world->Context());
        QVERIFY(WriteBytes(Logo(), bytes));
        m_world->dialog.FileName = u"/documents/a.LIM"_s;
        m_world->dialog.WillChoose(Logo());
        Click(dialog, "ObjOpen");
        QVERIFY(!dialog.findChild<LogoView*>()->HasPicture());
        QVERIFY(m_world->messages.All().isEmpty());
        QCOMPARE(m_world->dialog.FileName, u"/documents/a.LIM"_s); // the documents' name comes back
    }

    void CompanyDataThatCannotBeSaved()
    {
        CompanyDataDialog dialog(ReadCompany(Db()), m_world->Context());
        dialog.show();
        Field(dialog, "txtFields1")->setText(QString(51, u'x'));
        Click(dialog, "cmdSave");
        QVERIFY(m_world->messages.TakeOnly().contains(u"\"Titolare\" è più lungo"_s));
        QVERIFY(QFile::remove(Db()));
        Click(dialog, "cmdSave");
        QVERIFY(m_world->messages.TakeOnly().contains(u"non sono disponibili nel database"_s));
        QVERIFY(dialog.isVisible());
        QCOMPARE(Field(dialog, "txtFields1")->text().size(), 51);
    }

    void LogoOfAReport()
    {
        ReportLogo report;
        SetReportLogo(report, m_world->define); // no logo
        QVERIFY(report.section1Suppressed);
        m_world->define.LogoFile = Logo();
        report.section1Suppressed = false;
        SetReportLogo(report, m_world->define); // a file that is missing leaves the section as it is
        QVERIFY(!report.section1Suppressed);
        QCOMPARE(report.picture1Width, 0);
        QVERIFY(QImage(96, 480, QImage::Format_RGB32).save(Logo()));
        SetReportLogo(report, m_world->define);
        QCOMPARE(report.picture1Width, 1397); // 2540 hundredths of a millimetre times 0.55
        QCOMPARE(report.picture1Height, 1425);
    }

private:
    QString Db() const { return m_world->define.DbFile; }
    QString Logo() const { return m_home->filePath(u"logo.bmp"_s); }

    void ChooseLogo(QDialog& dialog, const QSize& size)
    {
        QImage picture(size, QImage::Format_RGB32);
        picture.fill(Qt::white);
        for (int x = 0; x < size.width(); ++x)
            picture.setPixelColor(x, x * size.height() / size.width(), Qt::red);
        QVERIFY(picture.save(Logo()));
        m_world->dialog.WillChoose(Logo());
        Click(dialog, "ObjOpen");
        QCOMPARE(m_world->dialog.FileName, QString());
    }

    static QLineEdit* Field(QDialog& dialog, const char* name)
    {
        return dialog.findChild<QLineEdit*>(QString::fromLatin1(name));
    }
    static QPushButton* Button(QDialog& dialog, const char* name)
    {
        return dialog.findChild<QPushButton*>(QString::fromLatin1(name));
    }
    static void Click(QDialog& dialog, const char* name) { Button(dialog, name)->click(); }

    std::unique_ptr<QTemporaryDir> m_home;
    std::unique_ptr<TestWorld> m_world;
};

QTEST_MAIN(DialogsTest)
#include "DialogsTest.moc"
