// The stories: whole windows after each thing that a user does. A story that goes otherwise than it is told
// is written beside the tests' programs as it goes; whoever takes that over has read it.
#include "Compare.h"
#include "stories/Story.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

class StoriesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { FailOnWarnings(); }

    void Told_data()
    {
        QTest::addColumn<QString>("name");
        for (const QString& name : QDir(Folder()).entryList({u"*.txt"_s}))
            QTest::addRow("%s", qPrintable(name)) << name;
        QVERIFY(!QDir(Folder()).isEmpty());
    }

    void Told()
    {
        QFETCH(QString, name);
        QFile file(Folder() + name);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QString expected = QString::fromUtf8(file.readAll());
        const QString told = Story(expected).Tell();
        if (told == expected)
            return;
        QFile as(QDir(Folder()).dirName() + u'-' + name);
        QVERIFY(as.open(QIODevice::WriteOnly) && as.write(told.toUtf8()) >= 0);
        QFAIL(qPrintable(FirstDifference(expected.split(u'\n'), told.split(u'\n'))));
    }

private:
    /// Those of the locale that this runs under.
    static QString Folder()
    {
        return QStringLiteral(QUOREL_TEST_DATA "/stories/%1/")
            .arg(QString::fromLocal8Bit(qgetenv("LC_ALL")).section(u'.', 0, 0));
    }

    static QString FirstDifference(const QStringList& expected, const QStringList& told)
    {
        qsizetype line = 0;
        while (line < expected.size() && line < told.size() && expected[line] == told[line])
            ++line;
        qsizetype step = line;
        while (step > 0 && !expected.value(step).startsWith(u'>'))
            --step;
        return u"line %1, after %2\n   told:  %3\n   comes: %4"_s.arg(
            QString::number(line + 1), expected.value(step), expected.value(line), told.value(line));
    }
};

QTEST_MAIN(StoriesTest)
#include "StoriesTest.moc"
