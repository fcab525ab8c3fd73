#include "framework/document/TestDocument.h"

#include "framework/document/CommonDialog.h"
#include "framework/document/Define.h"
#include "framework/document/Messages.h"
#include "framework/text/Found.h"
#include "framework/text/NumberText.h"
#include "framework/text/TextFunctions.h"
#include "framework/text/TextNumber.h"
#include "stats/RuntimeFailure.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

const std::array<QString, TestDocument::kMostInputs>& InputCaptions(Language language)
{
    static const InBoth<std::array<QString, TestDocument::kMostInputs>> kCaptions = {
        .it = {u"Metodo analitico"_s, u"Analita"_s, u"Campione"_s, u"U.M. della conc. dell'analita"_s},
        .en = {u"Analytical method"_s, u"Analyte"_s, u"Sample"_s,
               u"Measure unit of the analyte concentration"_s}};
    return kCaptions[language];
}

/// The size fields come first, then what the shape lists.
std::vector<Field> FieldsOf(const DocumentShape& shape)
{
    std::vector<Field> fields;
    for (const SizeField& size : shape.sizes)
        fields.push_back({.control = size.control,
                          .kind = FieldKind::Size,
                          .caption = size.caption,
                          .reset = size.initial});
    fields.insert(fields.end(), shape.fields.begin(), shape.fields.end());
    return fields;
}

} // namespace

TestDocument::TestDocument(const DocumentShape& shape, const DocumentContext& context)
    : m_shape(shape), m_info(*FindTest(shape.key)), m_context(context), m_fields(FieldsOf(shape))
{
    for (int i = 0; i < shape.grids; ++i) {
        m_grids.push_back(new DataGrid(context.define.DecSep, m_history, this));
        connect(m_grids.back(), &DataGrid::Edited, this, [this] {
            if (m_resultState == ResultState::Current) {
                NoteChange();
                Q_EMIT Changed();
            }
        });
    }
    for (const TableShape& table : shape.tables)
        m_tables.push_back(new TextTable(table, this));
    const QStringList none(shape.conclusions, QString());
    m_conclText = {none, none};
    if (shape.verdict)
        m_verdict.emplace();
}

void TestDocument::NoteChange()
{
    if (m_resultState == ResultState::Current)
        m_resultState = ResultState::Stale;
}

QString TestDocument::InputCaption(int index)
{
    return InputCaptions(Language::Italian)[static_cast<std::size_t>(index)];
}

void TestDocument::TypeInputData(int index, const QString& text)
{
    m_inputData[static_cast<std::size_t>(index)] = InOneLine(text);
    m_isModify = true;
    NoteChange();
    ShowInputs();
    Q_EMIT Changed();
}

void TestDocument::SelectOption(std::optional<int> value)
{
    m_option = value;
    ShowOption();
}

void TestDocument::ChooseOption(int value)
{
    SelectOption(value);
    if (!m_shape.optionsShow)
        NoteChange();
    OptionChosen();
    Q_EMIT Changed();
}

QString TestDocument::OptionCaption(int value) const
{
    const auto found = std::ranges::find(m_shape.options, value, &OptionField::value);
    return found == m_shape.options.end() ? QString() : found->caption;
}

std::optional<QStringList> TestDocument::Headers() const
{
    return m_shape.headersAreData ? std::optional(Grid().Cells().headers) : std::nullopt;
}

bool TestDocument::ChangeMade(Which which) const
{
    const auto changed = [](const DataGrid* grid) { return grid->Edits().ChangeMade(); };
    return which == Which::FirstGrid ? changed(m_grids.front()) : std::ranges::any_of(m_grids, changed);
}

void TestDocument::ClearFlags()
{
    m_isModify = false;
    for (DataGrid* grid : m_grids)
        grid->Edits().SetChangeMade(false);
}

QString TestDocument::FormatText() const
{
    const Digits& digits = Grid().GetDigits();
    return u"Formato numeri: Interi %1  Decimali %2"_s.arg(digits.interi).arg(digits.decimali);
}

TextTable* TestDocument::Table(QAnyStringView control) const
{
    const auto found = std::ranges::find_if(
        m_tables, [&](const TextTable* table) { return control == table->Shape().control; });
    return found == m_tables.end() ? nullptr : *found;
}

ChartData TestDocument::Chart(std::size_t index, Language /*language*/) const
{
    return ChartData(m_shape.charts[index].control);
}

QString TestDocument::ChartFootnote(Language language) const
{
    QStringList lines;
    for (std::size_t i = 0; i < static_cast<std::size_t>(m_shape.inputs); ++i)
        lines += InputCaptions(language)[i] + u": "_s + TrimBlanks(m_chartInputs[i]);
    return lines.join(u"\r\n"_s);
}

void TestDocument::SetLanGraf(Language language)
{
    m_chartLanguage = language;
    m_chartInputs = m_inputData;
    ++m_chartState;
}

std::vector<ChartData> TestDocument::ShownCharts() const
{
    std::vector<ChartData> charts;
    for (std::size_t i = 0; i < m_shape.charts.size(); ++i)
        charts.push_back(Chart(i, m_chartLanguage));
    return charts;
}

QString TestDocument::Shown(double value) const
{
    return FormatNumber(value, m_context.define.NumFormat, m_context.define.DecSep);
}

QString TestDocument::ShownCount(int count) const
{
    return FormatNumber(count, u"##0", m_context.define.DecSep);
}

void TestDocument::Conclude(const InBoth<QString>& text)
{
    m_conclText = {{text.it}, {text.en}};
    SetConclusions(text.it);
}

double TestDocument::ShownNumber(QLatin1StringView control) const
{
    return TextToDouble(ControlText(control), m_context.define.DecSep);
}

std::int16_t TestDocument::CountIn(QStringView text) const
{
    return TextToInt16(text, m_context.define.DecSep);
}

void TestDocument::BuildNumberFormat(Digits digits)
{
    m_fileDigits = digits;
    GetNumFormat(digits.interi, digits.decimali, m_context.define);
}

void TestDocument::SetDigits(Digits digits)
{
    for (DataGrid* grid : m_grids)
        grid->SetDigits(digits);
}

void TestDocument::ChooseDigits(Digits digits)
{
    BuildNumberFormat(digits);
    SetDigits(digits);
    NoteChange();
    Q_EMIT Changed();
}

void TestDocument::ResetFields()
{
    for (const Field& field : m_fields.All()) {
        if (field.kind == FieldKind::Result)
            SetControlText(field.control, field.reset.isEmpty() ? Shown(0) : field.reset);
        else if (field.kind == FieldKind::Notice)
            SetControlVisible(field.control, false);
    }
    for (TextTable* table : m_tables)
        table->Reset(u"0"_s);
}

void TestDocument::ResetDocument()
{
    m_title = m_info.TitleNoFile();
    m_context.dialog.FileName.clear();
    m_howRead = FileRead::Whole;
    m_readStop = {};
    m_deed = {};
    m_inputData.fill(QString());
    m_inputData[kUnitInput] = m_shape.initialUnit;
    for (const Field& size : m_fields.OfKind(FieldKind::Size))
        SetControlText(size.control, size.reset);
    ResetOwn();
    for (DataGrid* grid : m_grids) {
        const DataGrid::Redraw redraw(*grid);
        grid->UnlockAll();
        grid->Clear();
        grid->SetDigits(m_shape.digits);
    }
    BuildNumberFormat(m_shape.digits);
    ForgetNumbers();
    ResetFields();
    ShowReset();
    ShowInputs();
    SetConclusions(QString());
    ++m_chartState;
    m_resultState = ResultState::None;
    m_sizing.reset();
    m_history.Clear();
    ClearFlags();
    Q_EMIT Renewed();
    Q_EMIT Changed();
}

void TestDocument::Renew()
{
    ResetDocument();
    ResizeGrid();
    Q_EMIT Changed();
}

CalcEnd TestDocument::Refuse(const QString& why)
{
    Q_EMIT Pointer(false);
    m_context.messages.Show(MessageIcon::Exclamation, m_context.define.AppTitle, why);
    return CalcEnd::Refused;
}

CalcEnd TestDocument::Calc()
{
    Q_EMIT Pointer(true);
    const CalcEnd end = CalcTest();
    // Deliberate: a calculation without results leaves the hourglass on, which the menu's command takes back
    // and the toolbar's does not.
    if (end != CalcEnd::Done)
        return end;
    m_resultState = ResultState::Current;
    if (m_howRead == FileRead::Whole)
        m_readStop.why.clear();
    const auto tell = [this] {
        Q_EMIT Changed();
        Q_EMIT Calculated();
    };
    try {
        CalcCharts();
    } catch (const RuntimeFailure&) { // the results stand, and are shown, with charts that have no numbers
        ++m_chartState;
        tell();
        throw;
    }
    SetLanGraf(Language::Italian);
    tell();
    Q_EMIT Pointer(false);
    return end;
}
