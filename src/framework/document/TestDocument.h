// What the documents of all seven tests have in common: header, grid, flags, digits, results, conclusions,
// and the way from a data file and back. A document knows no window; window, report and companion ask it.
#pragma once

#include "framework/chart/ChartData.h"
#include "framework/document/CommonDialog.h"
#include "framework/document/Define.h"
#include "framework/document/Messages.h"
#include "framework/document/TestRegistry.h"
#include "framework/files/DataFileReader.h"
#include "framework/files/DataFileWriter.h"
#include "framework/grid/DataGrid.h"
#include "framework/text/NumberText.h"
#include "stats/CriticalValues.h"

#include <QAnyStringView>
#include <QLatin1StringView>
#include <QObject>
#include <QString>
#include <QStringList>

#include <array>
#include <optional>
#include <span>
#include <utility>
#include <vector>

/// What a document needs of the program around it. It outlives the document.
struct DocumentContext {
    Define& define;
    CommonDialog& dialog;
    Messages& messages;
    FTable& fTable;
};

/// A whole number that sizes the grid: its control, the smallest number that is applied, and the text that
/// takes the place of a smaller one.
struct SizeField {
    QLatin1StringView control;
    int minimum;
    QString fallback;
};

/// A result field: its control, and the caption beside it.
struct ResultField {
    QLatin1StringView control;
    QString caption;
};

/// A number of the last calculation, unrounded, under its symbol.
using NamedValue = std::pair<QLatin1StringView, double>;

class TestDocument : public QObject
{
    Q_OBJECT

public:
    static constexpr int kMostInputs = 4;
    static constexpr int kUnitInput = 3;

    TestDocument(QAnyStringView key, const DocumentContext& context);

    const TestInfo& Info() const { return m_info; }
    const DocumentContext& Context() const { return m_context; }
    const QString& Title() const { return m_title; }

    // Header fields aInputData, from 0: method, analyte, sample, unit.
    virtual int InputCount() const { return kMostInputs; }
    static QString InputCaption(int index);
    const QString& InputData(int index) const { return m_inputData[static_cast<std::size_t>(index)]; }
    /// What the user typed. Line ends become blanks: a header field is one line of the file.
    void TypeInputData(int index, const QString& text);

    virtual std::span<const SizeField> SizeFields() const = 0;
    /// What the user typed into a size field: applied when the number in it is large enough.
    void TypeSize(QLatin1StringView control, const QString& text);
    /// The field loses the focus. False when its number is too small: it has the fallback then and wants the
    /// focus back.
    [[nodiscard]] bool LeaveSize(QLatin1StringView control);

    DataGrid& Grid() { return m_grid; }
    const DataGrid& Grid() const { return m_grid; }

    /// The document's own dirty flag; the grid's ChangeMade is the other one.
    bool IsModify() const { return m_isModify; }
    void SetIsModify(bool modified) { m_isModify = modified; }
    bool ChangeMade() const { return m_grid.ChangeMade(); }
    void ClearFlags();

    /// The format with which values are written to the data file.
    const QString& NumberFormat() const { return m_numberFormat; }
    /// The user chose other digits: they hold for the grid, its file and the results from now on. Nothing
    /// counts as changed by that.
    void ChooseDigits(Digits digits);
    /// "Formato numeri: Interi 3  Decimali 3", as the panel StatusBar shows it.
    QString FormatText() const;

    /// What the result, caption or size field of this name shows; empty for a name that the document lacks.
    QString ControlText(QAnyStringView control) const;
    /// Whether the control of this name is seen.
    virtual bool ControlVisible(QAnyStringView control) const;
    /// The result fields, in the order of the window.
    virtual std::span<const ResultField> ResultFields() const = 0;
    /// Index of the selected option button, or nothing.
    virtual std::optional<int> Option() const { return std::nullopt; }

    /// The text of cConcl, lines ended by CR LF.
    const QString& Conclusions() const { return m_conclusions; }
    /// The conclusions of the last calculation, which a reset leaves as they are.
    virtual QStringList ConclText(bool english) const = 0;
    /// The verdict of the last calculation, Italian and English, in tests that give one; empty texts before
    /// it.
    virtual std::optional<std::array<QString, 2>> Verdict() const { return std::nullopt; }
    /// The charts of the last calculation; one without data before it.
    virtual std::vector<const ChartData*> Charts() const { return {}; }
    /// The texts of the charts become Italian (0) or English (1).
    virtual void SetLanGraf(int /*language*/) {}
    /// The numbers of the last calculation that came to its end since the last reset.
    virtual std::vector<NamedValue> Values() const = 0;

    /// The state of a document without a file.
    void ResetDocument();
    /// Brings the grid in line with the size fields.
    virtual void ResizeGrid() = 0;
    /// Reset and sized: what New and a new window show.
    void NewDocument();
    /// Computes results and conclusions from what stands in the fields and the grid. False when there is
    /// nothing to calculate or a message said why not. Fails as the test's numbers do, with results, texts
    /// and conclusions as they were.
    virtual bool Calc() = 0;

    /// Reset, then the document of the file. Fails where the file ends, cannot be read or holds what is no
    /// count: what was read by then stays, and ReadStop tells the line.
    void ReadFromFile(const QString& fileName);
    /// The line, from 1, at which the last reading stopped before its end.
    std::optional<int> ReadStop() const { return m_readStop; }
    /// Replaces the file as a whole and clears the flags. Fails, with file and flags as they were, as
    /// WriteSafeFile does, and with InvalidArgument for a character that the code page lacks.
    void WriteToFile(const QString& fileName);

Q_SIGNALS:
    /// Anything but the grid's cells may show something else now.
    void Changed();
    /// A calculation has set all its results.
    void Calculated();
    /// A chart shows something else now.
    void ChartsChanged();
    /// The window's mouse pointer becomes the hourglass, or the default again.
    void Pointer(bool hourglass);

protected:
    virtual Digits DefaultDigits() const = 0;
    /// Size fields, options and grid size as a new document has them.
    virtual void ResetSizes() = 0;
    /// Result fields and conclusions as a document without results shows them.
    virtual void ResetResults() = 0;
    virtual void ReadLines(DataFileReader& reader) = 0;
    virtual void WriteLines(DataFileWriter& writer) const = 0;

    /// The footnote of the charts: the header fields, each with its label, one a line.
    QString ChartFootnote(int language) const;
    void SetControlText(QLatin1StringView control, const QString& text);
    void SetConclusions(const QString& text) { m_conclusions = text; }
    /// value in the global NumFormat.
    QString Shown(double value) const;
    /// The number that a shown text or a size field holds, as a 16-bit integer. Fails as TextToInt16.
    std::int16_t CountIn(QStringView text) const;

    // The common pieces of a data file.
    struct FileHead {
        Digits digits;
        int fieldCount = 0; ///< comma-separated fields in each row: the row's number and the values
    };
    /// Lines 1 to 4, or the one line that stands in their place in a file of the older kind. Builds the
    /// number format.
    FileHead ReadHead(DataFileReader& reader);
    /// Line 5 and on. The first four are the header fields, which they fill.
    QStringList ReadHeaderLines(DataFileReader& reader, int count);
    /// One row: its first field is dropped, the others go to the columns in order; what has no column is
    /// dropped too.
    static void ReadRow(DataFileReader& reader, DataGrid& grid, int row, int fieldCount);
    void SetGridNumFormat(Digits digits);
    void WriteHead(DataFileWriter& writer, int fieldCount) const;
    void WriteRows(DataFileWriter& writer, const DataGrid& grid) const;

private:
    const SizeField* FindSizeField(QLatin1StringView control) const;
    int SizeNumber(QLatin1StringView control) const;
    void BuildNumberFormat(Digits digits);

    const TestInfo& m_info;
    DocumentContext m_context;
    QString m_title;
    std::array<QString, kMostInputs> m_inputData;
    DataGrid m_grid;
    bool m_isModify = false;
    QString m_numberFormat;
    std::vector<std::pair<QLatin1StringView, QString>> m_controlTexts;
    QString m_conclusions;
    std::optional<int> m_readStop;
};
