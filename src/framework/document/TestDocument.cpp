#include "framework/document/TestDocument.h"

#include "framework/files/CodePage.h"
#include "framework/text/NumberText.h"
#include "framework/text/TextFunctions.h"
#include "framework/text/TextNumber.h"

#include <QScopeGuard>

#include <algorithm>

using namespace Qt::StringLiterals;

TestDocument::TestDocument(QAnyStringView key, const DocumentContext& context)
    : m_info(*FindTest(key)), m_context(context), m_grid(context.define.DecSep)
{
}

QString TestDocument::InputCaption(int index)
{
    static const std::array kCaptions = {u"Metodo analitico"_s, u"Analita"_s, u"Campione"_s,
                                         u"U.M. della conc. dell'analita"_s};
    return kCaptions[static_cast<std::size_t>(index)];
}

void TestDocument::TypeInputData(int index, const QString& text)
{
    QString line = text;
    for (const QLatin1StringView end : {"\r\n"_L1, "\n"_L1, "\r"_L1})
        line.replace(end, " "_L1);
    m_inputData[static_cast<std::size_t>(index)] = line;
    m_isModify = true;
    Q_EMIT Changed();
}

const SizeField* TestDocument::FindSizeField(QLatin1StringView control) const
{
    const auto fields = SizeFields();
    const auto found = std::ranges::find(fields, control, &SizeField::control);
    return found == fields.end() ? nullptr : &*found;
}

/// The number in a size field's text, 0 where it is none.
int TestDocument::SizeNumber(QLatin1StringView control) const
{
    return ControlText(control).toInt();
}

void TestDocument::TypeSize(QLatin1StringView control, const QString& text)
{
    SetControlText(control, text);
    if (SizeNumber(control) >= FindSizeField(control)->minimum) {
        ResizeGrid();
        m_isModify = true;
    }
    Q_EMIT Changed();
}

bool TestDocument::LeaveSize(QLatin1StringView control)
{
    const SizeField& field = *FindSizeField(control);
    if (SizeNumber(control) >= field.minimum)
        return true;
    TypeSize(control, field.fallback);
    return false;
}

void TestDocument::ClearFlags()
{
    m_isModify = false;
    m_grid.SetChangeMade(false);
}

QString TestDocument::FormatText() const
{
    const Digits& digits = m_grid.GetDigits();
    return u"Formato numeri: Interi %1  Decimali %2"_s.arg(digits.interi).arg(digits.decimali);
}

QString TestDocument::ControlText(QAnyStringView control) const
{
    const auto found =
        std::ranges::find_if(m_controlTexts, [&](const auto& entry) { return control == entry.first; });
    return found == m_controlTexts.end() ? QString() : found->second;
}

void TestDocument::SetControlText(QLatin1StringView control, const QString& text)
{
    const auto found =
        std::ranges::find(m_controlTexts, control, [](const auto& entry) { return entry.first; });
    if (found == m_controlTexts.end())
        m_controlTexts.emplace_back(control, text);
    else
        found->second = text;
}

bool TestDocument::ControlVisible(QAnyStringView /*control*/) const
{
    return true;
}

QString TestDocument::ChartFootnote(int language) const
{
    static const std::array kEnglish = {u"Analytical method"_s, u"Analyte"_s, u"Sample"_s,
                                        u"Measure unit of the analyte concentration"_s};
    QStringList lines;
    for (int i = 0; i < InputCount(); ++i) {
        const QString label = language == 0 ? InputCaption(i) : kEnglish[static_cast<std::size_t>(i)];
        lines += label + u": "_s + TrimBlanks(InputData(i));
    }
    return lines.join(u"\r\n"_s);
}

QString TestDocument::Shown(double value) const
{
    return FormatNumber(value, m_context.define.NumFormat, m_context.define.DecSep);
}

std::int16_t TestDocument::CountIn(QStringView text) const
{
    return TextToInt16(text, m_context.define.DecSep);
}

void TestDocument::BuildNumberFormat(Digits digits)
{
    m_numberFormat = GetNumFormat(digits.interi, digits.decimali, m_context.define);
}

void TestDocument::SetGridNumFormat(Digits digits)
{
    m_grid.SetDigits(digits);
}

void TestDocument::ChooseDigits(Digits digits)
{
    BuildNumberFormat(digits);
    SetGridNumFormat(digits);
    Q_EMIT Changed();
}

void TestDocument::ResetDocument()
{
    m_title = m_info.TitleNoFile();
    m_context.dialog.FileName.clear();
    m_readStop.reset();
    m_inputData.fill(QString());
    {
        const DataGrid::Redraw redraw(m_grid);
        ResetSizes();
        m_grid.UnlockAll();
        m_grid.Clear();
        SetGridNumFormat(DefaultDigits());
    }
    BuildNumberFormat(DefaultDigits());
    ResetResults();
    ClearFlags();
    Q_EMIT Changed();
}

void TestDocument::NewDocument()
{
    ResetDocument();
    ResizeGrid();
}

void TestDocument::ReadFromFile(const QString& fileName)
{
    ResetDocument();
    m_readStop = 0;
    DataFileReader reader(fileName);
    bool whole = false;
    const auto noteStop = qScopeGuard([&] {
        m_readStop = whole ? std::nullopt : std::optional(reader.Line());
        Q_EMIT Changed();
    });
    const DataGrid::Redraw redraw(m_grid);
    ReadLines(reader);
    m_title = m_info.TitlePrefix() + fileName;
    whole = true;
}

void TestDocument::WriteToFile(const QString& fileName)
{
    DataFileWriter writer;
    WriteLines(writer);
    writer.Save(fileName);
    m_title = m_info.TitlePrefix() + fileName;
    ClearFlags();
    Q_EMIT Changed();
}

TestDocument::FileHead TestDocument::ReadHead(DataFileReader& reader)
{
    FileHead head{.digits = DefaultDigits()};
    QString count = FromCodePage(reader.ReadField());
    const bool marked = count == m_context.define.FileMarker;
    if (marked) {
        const std::int16_t interi = CountIn(FromCodePage(reader.ReadField()));
        const std::int16_t decimali = CountIn(FromCodePage(reader.ReadField()));
        if (interi < 1 || decimali < 0)
            throw RuntimeFailure(FailureKind::InvalidArgument);
        head.digits = {.interi = interi, .decimali = decimali};
    }
    BuildNumberFormat(head.digits);
    if (marked)
        count = FromCodePage(reader.ReadField());
    head.fieldCount = CountIn(count);
    return head;
}

QStringList TestDocument::ReadHeaderLines(DataFileReader& reader, int count)
{
    QStringList lines;
    while (lines.size() < count)
        lines.append(reader.ReadLine());
    m_inputData[0] = TrimBlanks(lines[0]);
    m_inputData[1] = TrimBlanks(lines[1]);
    // Deliberate: the unit, although the last field, stands in the file before the sample.
    if (InputCount() > kUnitInput)
        m_inputData[kUnitInput] = TrimBlanks(lines[2]);
    m_inputData[2] = TrimBlanks(lines[3]);
    return lines;
}

void TestDocument::ReadRow(DataFileReader& reader, DataGrid& grid, int row, int fieldCount)
{
    for (int field = 0; field < fieldCount; ++field) {
        QByteArrayView text = reader.ReadField();
        while (text.endsWith(' '))
            text.chop(1);
        const int col = field - 1;
        if (col < 0 || col >= grid.Cols())
            continue;
        grid.SetValue(row, col, text == "NIL" ? std::nullopt : std::optional(PointTextToDouble(text)));
    }
}

void TestDocument::WriteHead(DataFileWriter& writer, int fieldCount) const
{
    const Digits& digits = m_grid.GetDigits();
    writer.WriteText(m_context.define.FileMarker, u"");
    writer.WriteNumber(digits.interi);
    writer.WriteNumber(digits.decimali);
    writer.WriteNumber(fieldCount);
    for (const int index : {0, 1, kUnitInput, 2})
        writer.WriteText(m_inputData[static_cast<std::size_t>(index)], InputCaption(index));
}

void TestDocument::WriteRows(DataFileWriter& writer, const DataGrid& grid) const
{
    const qsizetype point = m_numberFormat.indexOf(u'.');
    const int decimals = point < 0 ? 0 : static_cast<int>(m_numberFormat.size() - point - 1);
    std::vector<std::optional<double>> values(static_cast<std::size_t>(grid.Cols()));
    for (int row = 0; row < grid.Rows(); ++row) {
        for (int col = 0; col < grid.Cols(); ++col)
            values[static_cast<std::size_t>(col)] = grid.TextValue(row, col);
        writer.WriteRow(row + 1, values, decimals);
    }
}
