// A calibration of any size for a benchmark.
#pragma once

#include <QFile>
#include <QTemporaryDir>

#include <cmath>

/// Makes a `.TAR` file of so many groups of so many replicates in the folder and gives its path.
inline QString TaraFile(const QTemporaryDir& folder, int groups, int replicates)
{
    const auto line = [](int number) { return QByteArray::number(number) + "\r\n"; };
    QByteArray bytes = "Quorel for Windows\r\n7\r\n3\r\n" + line(groups + 1) +
                       "HPLC\r\nCaffeina\r\nmg/l\r\nLotto 12\r\n0\r\n" + line(replicates) + line(groups) +
                       line(groups * replicates) + "\r\n" + line(groups);
    for (int group = 1; group <= groups; ++group)
        bytes += line(group);
    for (int row = 1; row <= replicates; ++row) {
        bytes += (row == 1 ? " " : "") + QByteArray::number(row);
        for (int group = 1; group <= groups; ++group)
            bytes += ',' + QByteArray::number(200 + 10 * group + 80 * std::sin(row + group), 'f', 3);
        bytes += "\r\n";
    }
    QFile file(folder.filePath(QStringLiteral("%1.TAR").arg(groups * replicates)));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("no file to measure with");
    return file.fileName();
}
