#include "framework/document/TestDocument.h"

#include "framework/document/Define.h"
#include "framework/document/GridRows.h"
#include "framework/files/CodePage.h"
#include "framework/files/DataFileReader.h"
#include "framework/files/DataFileWriter.h"
#include "framework/files/SafeFile.h"
#include "framework/text/NumberText.h"
#include "framework/text/TextFunctions.h"
#include "framework/text/TextNumber.h"
#include "stats/RuntimeFailure.h"

#include <QScopeGuard>

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;

// The way from a data file to the document and back.

namespace
{
constexpr qsizetype kLongestFound = 40;
constexpr double kMostSize = 32767;
const QString kFieldsExpected = u"la quantità di campi di una riga"_s;
} // namespace

void TestDocument::ReadFromFile(const QString& fileName)
{
    ResetDocument();
    m_howRead = FileRead::NotAtAll;
    const auto tell = qScopeGuard([this] { Q_EMIT Changed(); });
    DataFileReader reader(fileName);
    m_howRead = FileRead::InPart;
    const auto noteStop = qScopeGuard([&] { NoteStop(reader); });
    std::vector<std::unique_ptr<DataGrid::Redraw>> redraws;
    for (DataGrid* grid : m_grids)
        redraws.push_back(std::make_unique<DataGrid::Redraw>(*grid));
    ReadLines(reader);
    m_title = m_info.TitlePrefix() + fileName;
    m_howRead = FileRead::Whole;
}

void TestDocument::NoteStop(const DataFileReader& reader)
{
    if (m_howRead == FileRead::Whole) {
        m_readStop = {};
        return;
    }
    m_readStop.line = reader.Line();
    m_readStop.found = reader.Found();
    m_readStop.foundAt = m_readStop.line;
    if (m_readStop.found && m_readStop.line == m_readStop.lastOfHead)
        NoteSizeStop();
}

/// No row was read, because a size among the lines of the head is none, or because all of them together ask
/// for too many cells.
void TestDocument::NoteSizeStop()
{
    constexpr double kLeast = -0.5; // rounds to 0
    QStringList sizes;
    for (std::size_t i = 0; i < m_shape.lines.size(); ++i) {
        const FileLine& line = m_shape.lines[i];
        if (std::ranges::find(m_shape.sizes, line.control, &SizeField::control) == m_shape.sizes.end())
            continue;
        sizes += ControlText(line.control);
        m_readStop.found = sizes.constLast();
        m_readStop.foundAt = m_readStop.lastOfHead - static_cast<int>(m_shape.lines.size() - 1 - i);
        m_readStop.expected = u"la quantità \"%1\""_s.arg(m_fields[line.control].caption);
        const auto number = NumberIn(sizes.constLast(), m_context.define.DecSep);
        if (!number || *number < kLeast || *number > kMostSize)
            return;
    }
    m_readStop.found = sizes.join(u" x "_s);
    m_readStop.expected = u"una griglia di al più %1 celle"_s.arg(GridCells::kMostCells);
}

QString TestDocument::ReadNotice() const
{
    if (m_howRead == FileRead::Whole)
        return m_readStop.why.isEmpty()
                   ? QString()
                   : u"Il file è stato letto, ma non si può calcolare: %1"_s.arg(m_readStop.why);
    if (m_howRead == FileRead::NotAtAll)
        return u"Il file non è stato letto: %1"_s.arg(m_readStop.why);
    const QString found = m_readStop.found ? u"vi sta \"%1\""_s.arg(m_readStop.found->left(kLongestFound))
                                           : u"il file finisce"_s;
    return u"Letto in parte, fino alla riga %1: %2 dove è attesa %3"_s.arg(
        QString::number(m_readStop.foundAt), found, m_readStop.expected);
}

QByteArray TestDocument::FileBytes() const
{
    DataFileWriter writer;
    const Digits& digits = Grid().GetDigits();
    writer.WriteText(m_context.define.FileMarker, u"");
    writer.WriteNumber(digits.interi);
    writer.WriteNumber(digits.decimali);
    writer.WriteNumber(Grid().Cols() + 1);
    for (const int index : {0, 1, kUnitInput, 2})
        writer.WriteText(m_inputData[static_cast<std::size_t>(index)], InputCaption(index));
    for (const FileLine& line : m_shape.lines)
        WriteFileLine(writer, line);
    WriteBody(writer);
    return writer.Bytes();
}

void TestDocument::WriteToFile(const QString& fileName)
{
    WriteSafeFile(fileName, FileBytes());
    m_title = m_info.TitlePrefix() + fileName;
    m_howRead = FileRead::Whole; // the file holds what the document does
    m_readStop = {};
    ClearFlags();
    Q_EMIT Changed();
}

/// Lines 1 to 4, or the one line that stands in their place in a file of the older kind: the digits, and the
/// count of comma-separated fields in each row. Builds the number format.
int TestDocument::ReadHead(DataFileReader& reader, Digits& digits)
{
    Expect(kFieldsExpected);
    QString count = FromCodePage(reader.ReadField());
    const bool marked = count == m_context.define.FileMarker;
    if (marked) {
        Expect(u"la quantità di interi, da 1 in su"_s);
        digits.interi = CountIn(FromCodePage(reader.ReadField()));
        if (digits.interi < 1)
            throw RuntimeFailure(FailureKind::InvalidArgument);
        Expect(u"la quantità di decimali, da 0 in su"_s);
        digits.decimali = CountIn(FromCodePage(reader.ReadField()));
        if (digits.decimali < 0)
            throw RuntimeFailure(FailureKind::InvalidArgument);
    } else {
        digits = m_shape.olderDigits.value_or(m_shape.digits);
    }
    BuildNumberFormat(digits);
    Expect(kFieldsExpected);
    if (marked)
        count = FromCodePage(reader.ReadField());
    return CountIn(count);
}

void TestDocument::ReadLines(DataFileReader& reader)
{
    Digits digits;
    const int fieldCount = ReadHead(reader, digits);
    QStringList inputs;
    Expect(u"una riga dell'intestazione"_s);
    while (inputs.size() < kMostInputs)
        inputs.append(TrimBlanks(reader.ReadLine()));
    QStringList texts;
    while (texts.size() < static_cast<qsizetype>(m_shape.lines.size()))
        texts.append(reader.ReadLine());
    // Deliberate: the unit, although the last field, stands in the file before the sample.
    m_inputData = {inputs[0], inputs[1], inputs[3], m_shape.inputs > kUnitInput ? inputs[2] : QString()};
    ShowInputs();
    for (qsizetype i = 0; i < texts.size(); ++i)
        ReadFileLine(m_shape.lines[static_cast<std::size_t>(i)], texts[i]);
    Expect(u"una riga di dati"_s);
    m_readStop.lastOfHead = reader.Line();
    ReadBody(reader, fieldCount);
    SetDigits(digits);
}

void TestDocument::ReadFileLine(const FileLine& line, const QString& text)
{
    switch (line.kind) {
    case FileLine::Kind::Reserved:
    case FileLine::Kind::Blank:
        break;
    case FileLine::Kind::Text:
        SetControlText(line.control, TrimBlanks(text));
        break;
    case FileLine::Kind::Count:
        SetControlText(line.control,
                       GeneralText(PointTextToDouble(text.toLatin1()), m_context.define.DecSep));
        break;
    case FileLine::Kind::Own:
        ReadOwnLine(line.control, text);
        break;
    }
}

void TestDocument::WriteFileLine(DataFileWriter& writer, const FileLine& line) const
{
    switch (line.kind) {
    case FileLine::Kind::Reserved:
        writer.WriteNumber(0);
        break;
    case FileLine::Kind::Blank:
        writer.WriteText({}, line.caption);
        break;
    case FileLine::Kind::Text:
        writer.WriteText(ControlText(line.control), line.caption);
        break;
    case FileLine::Kind::Count:
        writer.WriteNumber(Count(line.control));
        break;
    case FileLine::Kind::Own:
        writer.WriteText(WriteOwnLine(line.control), line.caption);
        break;
    }
}

void TestDocument::WriteBody(DataFileWriter& writer) const
{
    for (const DataGrid* grid : m_grids)
        WriteRows(writer, *grid, m_fileDigits.decimali);
}
