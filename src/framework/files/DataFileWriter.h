// Builds the bytes of a data file, line by line.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringView>

#include <optional>
#include <span>

class DataFileWriter
{
public:
    /// A line of text. `field` is the caption of the field that it comes from.
    /// Fails with InvalidArgument for a character that the code page lacks.
    void WriteText(const QString& text, QStringView field);
    /// A whole number, trimmed.
    void WriteNumber(int number);
    /// One row: its number (from 1; " 1" with a leading blank, all others without), then the values at the
    /// given count of decimals, a point in front of them. Nothing for a value is written "NIL      ".
    void WriteRow(int number, std::span<const std::optional<double>> values, int decimals);

    const QByteArray& Bytes() const { return m_bytes; }

private:
    void EndLine();

    QByteArray m_bytes;
};
