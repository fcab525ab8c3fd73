#include "framework/files/DataFileWriter.h"

#include "framework/files/CodePage.h"
#include "framework/text/NumberText.h"

void DataFileWriter::EndLine()
{
    m_bytes += "\r\n";
}

void DataFileWriter::WriteText(const QString& text, QStringView field)
{
    m_bytes += ToCodePage(text, field);
    EndLine();
}

void DataFileWriter::WriteNumber(int number)
{
    m_bytes += QByteArray::number(number);
    EndLine();
}

void DataFileWriter::WriteRow(int number, std::span<const std::optional<double>> values, int decimals)
{
    // Deliberate: the blank in front of the first row's number belongs to the format.
    if (number == 1)
        m_bytes += ' ';
    m_bytes += QByteArray::number(number);
    for (const auto& value : values) {
        m_bytes += ',';
        m_bytes += value ? PointText(*value, decimals) : QByteArrayLiteral("NIL      ");
    }
    EndLine();
}
