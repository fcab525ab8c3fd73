// The stories: whole windows after each thing that a user does.
#include "Compare.h"
#include "stories/ExpectedText.h"
#include "stories/Story.h"

using namespace Qt::StringLiterals;

class StoriesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    /// Of the desktop's fonts one that is always there, in one size: what is laid out by it is told.
    void initTestCase()
    {
        QFont font(u"Liberation Sans"_s);
        font.setPixelSize(11);
        QApplication::setFont(font);
    }

    void init() { FailOnWarnings(); }

    void Told_data()
    {
        QTest::addColumn<QString>("file");
        // Those of the locale that numbers are shown in; the windows are told under the laboratory's.
        const QString all = qEnvironmentVariable("LC_ALL");
        const QString locale = (all.isEmpty() ? qEnvironmentVariable("LC_NUMERIC") : all).section(u'.', 0, 0);
        QStringList folders(u"stories/"_s + locale + u'/');
        if (locale == u"it_IT")
            folders += u"windows/"_s;
        for (const QString& folder : folders) {
            for (const QString& name :
                 QDir(QStringLiteral(QUOREL_TEST_DATA "/") + folder).entryList({u"*.txt"_s}))
                QTest::addRow("%s", qPrintable(name)) << folder + name;
        }
    }

    void Told()
    {
        QFETCH(QString, file);
        QFile story(QStringLiteral(QUOREL_TEST_DATA "/") + file);
        QVERIFY(story.open(QIODevice::ReadOnly));
        const QString difference = DifferenceFrom(file, Story(QString::fromUtf8(story.readAll())).Tell());
        QVERIFY2(difference.isEmpty(), qPrintable(difference));
    }

    /// Once it is painted, which no story waits for.
    void TheFrameGetsItsPicture()
    {
        const QTemporaryDir home;
        qputenv("HOME", QFile::encodeName(home.path()));
        Program program;
        QVERIFY(program.Start());
        QTRY_VERIFY(!program.Window().windowIcon().pixmap(32).isNull());
    }
};

QTEST_MAIN(StoriesTest)
#include "StoriesTest.moc"
