// A document of any length for a benchmark.
#pragma once

#include <QFile>
#include <QTemporaryDir>

#include <cmath>
#include <cstdint>

/// Makes a `.LIM` file of so many rows in the folder and gives its path.
inline QString LimiFile(const QTemporaryDir& folder, std::int64_t rows)
{
    QByteArray bytes =
        "Quorel for Windows\r\n3\r\n3\r\n2\r\nHPLC isocratico\r\nCaffeina\r\nmg/l\r\nLotto 12\r\n0\r\n" +
        QByteArray::number(rows) + "\r\nVero\r\n";
    for (std::int64_t row = 1; row <= rows; ++row)
        bytes += (row == 1 ? " " : "") + QByteArray::number(row) + ',' +
                 QByteArray::number(100 + std::sin(static_cast<double>(row)), 'f', 3) + "\r\n";
    QFile file(folder.filePath(QStringLiteral("%1.LIM").arg(rows)));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("no file to measure with");
    return file.fileName();
}
