// What the documents of all seven tests have in common: header, grids, flags, digits, fields, conclusions,
// and the way from a data file and back. A document knows no window; window, report and companion ask it.
#pragma once

#include "framework/chart/ChartData.h"
#include "framework/document/DocumentContext.h"
#include "framework/document/DocumentShape.h"
#include "framework/document/FieldSet.h"
#include "framework/document/ResultState.h"
#include "framework/document/TestRegistry.h"
#include "framework/document/TextTable.h"
#include "framework/grid/DataGrid.h"
#include "framework/grid/GridCells.h"
#include "framework/grid/GridEdits.h"
#include "framework/grid/History.h"
#include "framework/text/Language.h"
#include "framework/text/NumberText.h"

#include <QAnyStringView>
#include <QByteArray>
#include <QLatin1StringView>
#include <QObject>
#include <QString>
#include <QStringList>

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <utility>
#include <variant>
#include <vector>

class DataFileReader;
class DataFileWriter;

/// A number of the last calculation, unrounded, under its symbol; a list has gaps where it does not apply.
struct NamedValue {
    QLatin1StringView name;
    std::variant<double, bool, std::vector<std::optional<double>>> value;
};

/// How a calculation ended. Anything but Done leaves results, texts and conclusions as they were (but t in
/// the test of specificity, which shows 0).
enum class CalcEnd {
    Done,
    SumIsZero, ///< nothing to calculate, and no word said
    Refused,   ///< a message said why
};

/// How far a document was read from its file.
enum class FileRead { Whole, InPart, NotAtAll };

class TestDocument : public QObject
{
    Q_OBJECT

public:
    static constexpr int kMostInputs = 4;
    static constexpr int kUnitInput = 3;

    const TestInfo& Info() const { return m_info; }
    const DocumentShape& Shape() const { return m_shape; }
    const DocumentContext& Context() const { return m_context; }
    const QString& Title() const { return m_title; }

    // Header fields aInputData, from 0: method, analyte, sample, unit.
    static QString InputCaption(int index);
    const QString& InputData(int index) const { return m_inputData[static_cast<std::size_t>(index)]; }
    std::span<const QString> Inputs() const
    {
        return std::span(m_inputData).first(static_cast<std::size_t>(m_shape.inputs));
    }
    /// What the user typed. A header field is one line of the file, as InOneLine has it.
    void TypeInputData(int index, const QString& text);

    const SizeField& SizeOf(QAnyStringView control) const;
    /// What the user typed into a size field: applied when the number in it lies within its limits. All that
    /// is typed until the field is left is one step of the history.
    void TypeSize(QLatin1StringView control, const QString& text);
    /// Whether something was typed into a size field that was not left since.
    bool IsSizing() const { return m_sizing.has_value(); }
    /// A size field loses the focus. False when its number is refused: it has the fallback then and wants the
    /// focus back.
    [[nodiscard]] bool LeaveSize(QLatin1StringView control);

    /// A size field, and a larger number for it.
    struct Growth {
        const SizeField* field;
        int number;
    };
    /// With what sizes a grid would hold all of a block. None where it does already, or can't.
    std::vector<Growth> GrowthFor(const DataGrid& grid, const GridBlock& block) const;
    /// Gives the fields those numbers and pastes a text into the block, in one step.
    PasteCount PasteWhole(DataGrid& grid, const GridBlock& block, const QString& text);

    /// Takes the last step in a grid or a size field back, or does it again. False when there is none. Fails
    /// as CellsEdited.
    bool Undo();
    bool Redo();
    const History& Steps() const { return m_history; }

    /// The value of the selected option, or nothing.
    std::optional<int> Option() const { return m_option; }
    /// The user chose an option.
    void ChooseOption(int value);

    DataGrid& Grid(std::size_t index = 0) { return *m_grids[index]; }
    const DataGrid& Grid(std::size_t index = 0) const { return *m_grids[index]; }
    std::span<DataGrid* const> Grids() const { return m_grids; }
    /// The user changed a grid. Its window calls this inside its guard. A document that changes fields here
    /// emits Changed. Fails as the document's own work does.
    virtual void CellsEdited(DataGrid& /*grid*/, const GridChange& /*change*/) {}
    /// The headers that are data, in tests that have such.
    std::optional<QStringList> Headers() const;

    /// The document's own dirty flag; the grids' ChangeMade is the other one.
    bool IsModify() const { return m_isModify; }
    void SetIsModify(bool modified) { m_isModify = modified; }
    enum class Which { AllGrids, FirstGrid };
    bool ChangeMade(Which which = Which::AllGrids) const;
    void ClearFlags();

    /// The user chose other digits: they hold for the grids, the file and the results from now on. Nothing
    /// counts as changed by that. They become the global format, too: the next results of every other
    /// document come out in it.
    virtual void ChooseDigits(Digits digits);
    /// "Formato numeri: Interi 3  Decimali 3", as the panel StatusBar shows it.
    QString FormatText() const;

    /// The fields by their names.
    const FieldSet& Fields() const { return m_fields; }
    const QString& ControlText(QAnyStringView control) const { return m_fields[control].text; }
    bool ControlVisible(QAnyStringView control) const { return m_fields[control].visible; }
    /// Null for a table that the test has not got.
    TextTable* Table(QAnyStringView control) const;

    /// The text of cConcl, lines ended by CR LF.
    const QString& Conclusions() const { return m_conclusions; }
    /// The conclusions of the last calculation, which a reset leaves as they are; empty texts before the
    /// first.
    const QStringList& ConclText(Language language) const { return m_conclText[language]; }
    const InBoth<QStringList>& ConclTexts() const { return m_conclText; }
    /// The verdict of the last calculation, in tests that give one; empty texts before the first.
    const std::optional<InBoth<QString>>& Verdict() const { return m_verdict; }
    /// Changed tells of another one.
    ResultState Results() const { return m_resultState; }
    /// The numbers of the last calculation that came to its end since the last reset.
    virtual std::vector<NamedValue> Values() const = 0;

    /// A chart of the last calculation; one without data before it. Touches nothing but this document. Never
    /// fails: what can fail belongs in CalcCharts.
    virtual ChartData Chart(std::size_t index, Language language) const;
    /// The charts get the header texts of this moment, and are shown in this language.
    void SetLanGraf(Language language);
    /// All of them, as they are shown.
    std::vector<ChartData> ShownCharts() const;
    /// Another number each time that the charts show something else.
    int ChartState() const { return m_chartState; }

    /// The state of a document without a file. Empties the file name that all documents share, and sets the
    /// global number format.
    void ResetDocument();
    /// Brings the grids in line with the size fields. Fails as CountIn and SetSize do.
    virtual void ResizeGrid() = 0;
    /// Reset and sized: what New and a new window show.
    void Renew();
    /// Computes results and conclusions from what stands in the fields and the grids. Fails as the test's
    /// numbers do, with results, texts and conclusions as they were, unless it is a chart's numbers that
    /// fail.
    CalcEnd Calc();

    /// Reset, then the document of the file. Fails where the file ends, cannot be read or holds what is no
    /// count: what was read by then stays.
    void ReadFromFile(const QString& fileName);
    FileRead HowRead() const { return m_howRead; }
    /// Why nothing was read, or nothing calculated of what was read, for ReadNotice.
    void NoteFailure(const QString& why) { m_readStop.why = why; }
    /// The line, from 1, at which a reading in part stopped; else 0.
    int ReadStop() const { return m_readStop.line; }
    /// What the user is told of a file that was not read whole: where the reading stopped, what stood there,
    /// what was expected; or of one that can't be calculated. Empty until the next one, and once the document
    /// was saved or calculated.
    QString ReadNotice() const;
    /// What the user is told of the results that stand.
    virtual QString ResultNotice() const { return {}; }
    /// What the user is told of the last thing that was done. Empty once the history goes on.
    QString DeedNotice() const { return m_deed.state == m_history.State() ? m_deed.text : QString(); }
    /// The bytes of the document's file. Fails with InvalidArgument for a character that the code page lacks,
    /// and as CountIn for a count that is none.
    QByteArray FileBytes() const;
    /// Replaces the file as a whole and clears the flags. Fails, with file and flags as they were, as
    /// FileBytes and WriteSafeFile do.
    void WriteToFile(const QString& fileName);

Q_SIGNALS:
    /// Anything but the grids' cells may show something else now.
    void Changed();
    /// It is another document now: new, or about to be read.
    void Renewed();
    /// A calculation has set all its results.
    void Calculated();
    /// The document was read from this file, as far as that went, or written to it.
    void Filed(const QString& fileName);
    /// The window's mouse pointer becomes the hourglass, or the default again.
    void Pointer(bool hourglass);

protected:
    /// The shape lives as long as the program. Made by MakeDocument alone, which then calls Renew.
    TestDocument(const DocumentShape& shape, const DocumentContext& context);

    // What a test adds. A reset calls the first four, in this order.

    /// The grids' size, options and whatever else the shape does not tell, as a new document has them. The
    /// cells, their digits and the results are still the former ones.
    virtual void ResetOwn() {}
    /// The numbers of the last calculation go.
    virtual void ForgetNumbers() = 0;
    /// What the reset texts of fields and tables do not tell. They stand, in the new document's number
    /// format.
    virtual void ShowReset() {}
    /// The header fields were typed, read or reset: captions follow.
    virtual void ShowInputs() {}
    /// An option was selected, by the user, a reset or a file: captions and visibility follow.
    virtual void ShowOption() {}
    /// The user chose an option; ShowOption came before.
    virtual void OptionChosen() {}
    /// Sets results, texts and conclusions, when all numbers stand.
    virtual CalcEnd CalcTest() = 0;
    /// A message says why there is nothing to calculate; the pointer is the default one again.
    CalcEnd Refuse(const QString& why);
    /// The numbers of the charts, from the results that stand and are shown.
    virtual void CalcCharts() {}
    virtual void ReadOwnLine(QLatin1StringView /*control*/, const QString& /*text*/) {}
    virtual QString WriteOwnLine(QLatin1StringView /*control*/) const { return {}; }
    /// What the next reading is expected to find, for ReadNotice: "una riga di dati".
    void Expect(const QString& what) { m_readStop.expected = what; }
    /// What follows the lines of the shape: sizes the grids and reads their rows. fieldCount: what the file's
    /// head says.
    virtual void ReadBody(DataFileReader& reader, int fieldCount) = 0;
    virtual void WriteBody(DataFileWriter& writer) const;

    // What it is made with.

    /// For DeedNotice: of what was just done.
    void TellDeed(const QString& text) { m_deed = {.text = text, .state = m_history.State()}; }
    void SetControlText(QAnyStringView control, const QString& text) { m_fields.SetText(control, text); }
    void SetControlVisible(QAnyStringView control, bool visible) { m_fields.SetVisible(control, visible); }
    void SelectOption(std::optional<int> value);
    /// Empty for a value that no option has.
    QString OptionCaption(int value) const;
    void SetConclusions(const QString& text) { m_conclusions = text; }
    void SetConclText(InBoth<QStringList> texts) { m_conclText = std::move(texts); }
    /// The one text of each language, of which the Italian one is shown.
    void Conclude(const InBoth<QString>& text);
    void SetVerdict(InBoth<QString> verdict) { m_verdict = std::move(verdict); }

    /// A result as the window shows it, in the global number format.
    QString Shown(double value) const;
    /// Degrees of freedom, as the window shows them.
    QString ShownCount(int count) const;
    /// With which values are written to the data file.
    const Digits& FileDigits() const { return m_fileDigits; }
    /// The number that a shown field holds. Fails as TextToDouble.
    double ShownNumber(QLatin1StringView control) const;
    /// The number that a text or a field holds, as a 16-bit integer. Fails as TextToInt16.
    std::int16_t CountIn(QStringView text) const;
    std::int16_t Count(QAnyStringView control) const { return CountIn(ControlText(control)); }
    /// The footnote of the charts: the header fields, each with its label, one a line.
    QString ChartFootnote(Language language) const;

private:
    /// What the size fields show, in their order, and what the grids hold.
    struct SizeState {
        QStringList texts;
        std::vector<GridCells> grids;
        friend bool operator==(const SizeState&, const SizeState&) = default;
    };
    /// What is being typed into size fields: what stood before, and the texts that were last applied.
    struct Sizing {
        SizeState before;
        QStringList applied;
    };
    QStringList SizeTexts() const;
    void SetSizeTexts(const QStringList& texts);
    SizeState Sizes() const;
    void SetSizes(const SizeState& state);
    void BeginSizing();
    void ApplySizes();
    bool EndSizing();
    bool DropUnapplied();
    bool Turn(bool (History::*turn)());
    static int NeededBy(const SizeField& field, const GridBlock& block);
    /// Something that results came from is another one now.
    void NoteChange();
    int SizeNumber(QLatin1StringView control) const;
    void ResetFields();
    void SetDigits(Digits digits);
    void BuildNumberFormat(Digits digits);
    int ReadHead(DataFileReader& reader, Digits& digits);
    void ReadLines(DataFileReader& reader);
    void NoteStop(const DataFileReader& reader);
    void NoteSizeStop();
    void ReadFileLine(const FileLine& line, const QString& text);
    void WriteFileLine(DataFileWriter& writer, const FileLine& line) const;

    const DocumentShape& m_shape;
    const TestInfo& m_info;
    DocumentContext m_context;
    QString m_title;
    std::array<QString, kMostInputs> m_inputData;
    History m_history;
    std::optional<Sizing> m_sizing;
    std::vector<DataGrid*> m_grids;   ///< children
    std::vector<TextTable*> m_tables; ///< children
    FieldSet m_fields;
    std::optional<int> m_option;
    bool m_isModify = false;
    Digits m_fileDigits;
    QString m_conclusions;
    InBoth<QStringList> m_conclText;
    std::optional<InBoth<QString>> m_verdict;
    Language m_chartLanguage = Language::Italian;
    std::array<QString, kMostInputs> m_chartInputs; ///< the header texts that the charts show
    int m_chartState = 0;
    ResultState m_resultState = ResultState::None;
    FileRead m_howRead = FileRead::Whole;
    struct {
        QString text = {};
        int state = 0; ///< of the history
    } m_deed;
    /// Where a reading in part stopped, or why there was none.
    struct {
        QString why = {};
        int line = 0;
        std::optional<QString> found = {}; ///< nothing at the end of the file
        QString expected = {};
        int foundAt = 0;    ///< the line of what was found
        int lastOfHead = 0; ///< the line before the data
    } m_readStop;
};

/// A new document, in the state of one without a file.
template<typename Document>
std::unique_ptr<Document> MakeDocument(const DocumentContext& context)
{
    auto document = std::make_unique<Document>(context);
    document->Renew();
    return document;
}
