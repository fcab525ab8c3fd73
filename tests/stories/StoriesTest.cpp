// The stories: whole windows after each thing that a user does.
#include "Compare.h"
#include "OneFont.h"
#include "framework/window/Furnishings.h"
#include "stories/ExpectedText.h"
#include "stories/Story.h"

using namespace Qt::StringLiterals;

class StoriesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { LayOutByOneFont(); }

    void init() { FailOnWarnings(); }

    void Told_data()
    {
        // Those of the locale that numbers are shown in; the windows are told under the laboratory's.
        const QString all = qEnvironmentVariable("LC_ALL");
        const QString locale = (all.isEmpty() ? qEnvironmentVariable("LC_NUMERIC") : all).section(u'.', 0, 0);
        QStringList folders(u"stories/"_s + locale);
        if (locale == u"it_IT")
            folders += u"windows"_s;
        AddKeptTexts(folders);
    }

    void Told()
    {
        QFETCH(QString, file);
        const QString difference = DifferenceFrom(file, Story(KeptText(file)).Tell());
        QVERIFY2(difference.isEmpty(), qPrintable(difference));
    }

    /// The picture once it is painted, which no story waits for.
    void TheFrameIsFurnished()
    {
        const QTemporaryDir home;
        qputenv("HOME", QFile::encodeName(home.path()));
        Program program;
        QVERIFY(program.Start());
        const QPalette menus = QApplication::palette("QMenu");
        QCOMPARE(menus.color(QPalette::Disabled, QPalette::Text), QColor(kDisabledColor));
        QTRY_VERIFY(!program.Window().windowIcon().pixmap(32).isNull());
    }
};

QTEST_MAIN(StoriesTest)
#include "StoriesTest.moc"
