// A text that is kept among the tests' data, and compared whole.
#pragma once

#include <QDir>
#include <QFile>
#include <QString>
#include <QStringList>
#include <QTest>

/// The text kept in `file`, a path below the tests' data; empty where there is none.
inline QString KeptText(const QString& file)
{
    QFile kept(QStringLiteral(QUOREL_TEST_DATA "/") + file);
    return kept.open(QIODevice::ReadOnly) ? QString::fromUtf8(kept.readAll()) : QString();
}

/// For the data of a test: a row for each text kept in these folders, with its path as "file". It fails where
/// there is none.
inline void AddKeptTexts(const QStringList& folders)
{
    QTest::addColumn<QString>("file");
    for (const QString& folder : folders) {
        const QDir texts(QStringLiteral(QUOREL_TEST_DATA "/") + folder);
        const QStringList names = texts.entryList({QStringLiteral("*.txt")});
        QVERIFY2(!names.isEmpty(), qPrintable(folder));
        for (const QString& name : names)
            QTest::addRow("%s", qPrintable(name)) << folder + QLatin1Char('/') + name;
    }
}

/// Where `told` differs from the text kept in `file`, a path below the tests' data; empty where it does not.
/// A text that differs is written into the folder in which the test runs, so that it can be read, and taken
/// over.
inline QString DifferenceFrom(const QString& file, const QString& told)
{
    const QString expected = KeptText(file);
    if (told == expected)
        return {};
    QFile as(QString(file).replace(u'/', u'-'));
    if (!as.open(QIODevice::WriteOnly) || as.write(told.toUtf8()) < 0)
        return QStringLiteral("%1 can't be written").arg(as.fileName());
    const QStringList lines = expected.split(u'\n');
    const QStringList now = told.split(u'\n');
    qsizetype line = 0;
    while (line < lines.size() && line < now.size() && lines[line] == now[line])
        ++line;
    qsizetype step = line;
    while (step > 0 && !lines.value(step).startsWith(u'>'))
        --step;
    return QStringLiteral("%1, line %2, after %3\n   told:  %4\n   comes: %5")
        .arg(file, QString::number(line + 1), lines.value(step), lines.value(line), now.value(line));
}
