// The tables that tell one test's document from another's: its grids, fields, sizes, options, file lines,
// charts.
#pragma once

#include "framework/document/FieldSet.h"
#include "framework/text/NumberText.h"
#include "stats/RuntimeFailure.h"

#include <QLatin1StringView>
#include <QString>
#include <QStringList>

#include <limits>
#include <optional>
#include <vector>

/// A whole number that the user types to size the grid. Numbers from minimum to maximum are applied as they
/// are typed.
struct SizeField {
    static constexpr int kNoMaximum = std::numeric_limits<int>::max();
    /// Which numbers are refused when the field loses the focus.
    enum class Refuses { Below, Outside };
    /// What takes a refused number's place: the number of a new document, or the count of the grid's rows.
    enum class Fallback { Initial, GridRows };

    QLatin1StringView control;
    QString caption;
    QString initial; ///< in a new document
    int minimum = 1;
    int maximum = kNoMaximum;
    /// The number in "(min. 5)" beside the field, where it is another than minimum.
    std::optional<int> shownMinimum = {};
    Refuses refuses = Refuses::Below;
    Fallback fallback = Fallback::Initial;
    bool beeps = false; ///< when it refuses
    // What a refusal does besides: the grids take the new number's size, the document counts as modified.
    bool resizes = true;
    bool modifies = true;
    static constexpr int kNoColumn = -1;
    static constexpr int kAllColumns = -2;
    int rowsOf = kNoColumn;                             ///< the column of the grids whose rows it counts
    bool countsColumns = false;                         ///< of the grids
    QString counted = QStringLiteral("determinazioni"); ///< what it counts, in the plural

    QString MinimumCaption() const { return QStringLiteral("(min. %1)").arg(shownMinimum.value_or(minimum)); }
};

/// One of the options of which one is selected, or none.
struct OptionField {
    QLatin1StringView control;
    QString caption;
    int value = 0; ///< what Option tells while it is selected
    bool visible = true;
};

/// A line of the data file behind the four header fields.
struct FileLine {
    enum class Kind {
        Reserved, ///< written "0", read and passed over
        Blank,    ///< written empty, read and passed over
        Text,     ///< the text of a field, trimmed when read
        Count,    ///< the number that the text of a field begins with
        Own,      ///< the document's affair: ReadOwnLine, WriteOwnLine
    };
    Kind kind = Kind::Reserved;
    QLatin1StringView control = {};
    QString caption = {}; ///< names the field where the code page lacks a character of it
};

/// A table of texts that a calculation fills.
struct TableShape {
    QLatin1StringView control;
    QString caption;
    QStringList
        columnTitles; ///< from the left, that of the row titles included; empty: the table has no titles
    QStringList rowTitles = {};
    /// A text a row, a character a cell: 0 where a document without results shows 0, else a hyphen.
    QStringList reset = {};
};

struct ChartShape {
    QLatin1StringView control;
    QString caption = QStringLiteral("Grafico"); ///< what a screen reader calls it
};

/// Lives as long as the program.
struct DocumentShape {
    QLatin1StringView key;
    int inputs = 4;            ///< header fields: all four, or those without the unit
    bool inputsSelect = false; ///< a header field that gets the focus selects all of its text
    QString initialUnit = {};
    int grids = 1;
    bool headersAreData = false; ///< the column headers of the first grid are numbers that the user types
    Digits digits;               ///< of a new document
    /// Of a file of the older kind, where they are others.
    std::optional<Digits> olderDigits = {};
    std::vector<SizeField> sizes;
    std::vector<OptionField> options = {};
    /// They choose which results are seen, and none is calculated anew for them.
    /// Deliberate: such an option leaves the results current, which they are.
    bool optionsShow = false;
    /// Results, captions and notices, and sizes that are not typed, in the order of the window.
    std::vector<Field> fields;
    std::vector<TableShape> tables = {};
    std::vector<FileLine> lines;
    std::vector<ChartShape> charts = {};
    int conclusions = 1; ///< how many texts of conclusions a calculation gives in each language
    bool verdict = false;
    /// A failure of which the user is told, and after which the program goes on.
    std::optional<FailureKind> survives = {};
};
