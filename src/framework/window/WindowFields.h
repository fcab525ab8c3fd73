// The fields of a test window and their way to the document and back.
#pragma once

#include "framework/window/Guard.h"
#include "framework/window/ResultField.h"
#include "framework/window/ResultSheet.h"
#include "framework/window/SizeFields.h"
#include "framework/window/VerdictSign.h"

#include <QAnyStringView>
#include <QGridLayout>
#include <QGroupBox>
#include <QHash>
#include <QLabel>
#include <QLatin1StringView>
#include <QLineEdit>
#include <QList>
#include <QObject>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QString>

#include <functional>
#include <utility>

class ResultTable;
class TestDocument;

/// Results beside each other behind a label. Without results the label is a heading, without a label the
/// result takes the whole row. A label of which the document has a field shows what that field does.
struct ResultRow {
    QString labelName;
    QList<QLatin1StringView> controls;
    QString caption = {};  ///< empty: that of the first result
    bool onePlace = false; ///< the results share one place, and one of them is seen
    /// What stands for the result in formulas, in front of it: objectName and text, "r =".
    std::pair<QString, QString> symbol = {};
};

/// What a verdict's sign shows at the moment.
using FindSign = std::function<VerdictSign::Kind()>;

/// Makes the pieces that the pages of the tests are put together from. What the user types goes to the
/// document, through the window's guard; Refresh shows what the document holds.
class WindowFields : public QObject
{
    Q_OBJECT

public:
    WindowFields(TestDocument& document, Guard guard, QObject* parent);

    /// The header fields, each with its label; labelName is what the labels' objectNames begin with.
    QWidget* HeaderFields(const QString& labelName);
    /// A frame with the conclusions.
    QGroupBox* ConclusionsFrame(const QString& frameName);
    /// As SizeFields::Add, in the next row of a layout. A size that is not typed is shown.
    void AddSize(QGridLayout* layout, const SizeRow& row);
    /// The options of the document, each in a row of its own over so many columns; those that are hidden,
    /// too.
    void AddOptions(QGridLayout* layout, int columns);
    void AddResults(QGridLayout* layout, const QList<ResultRow>& rows);
    /// Headings over the columns of the results that follow: objectName and text of each.
    void AddHeadings(QGridLayout* layout, const QList<std::pair<QString, QString>>& headings);
    /// A verdict in words over the whole row, with a sign beside it.
    void AddVerdict(QGridLayout* layout, QLatin1StringView control, const FindSign& sign);
    /// A label whose text the document gives.
    QLabel* FieldLabel(QAnyStringView control);
    /// A table of the document.
    ResultTable* TableView(QLatin1StringView control);
    static QGroupBox* FrameBox(const QString& name, const QString& title);
    /// A frame whose title is a text, or the name of a field whose text and visibility the frame follows.
    QGroupBox* TitledBox(const QString& name, const QString& title);

    SizeFields& Sizes() { return *m_sizes; }
    void Refresh();
    /// The first header field gets the focus.
    void FocusFirst() { m_inputs.constFirst()->setFocus(); }

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    QLabel* RowLabel(const ResultRow& row);
    ResultField* NewResult(QLatin1StringView control);
    void ShowResults();
    void ShowState();
    void ShowOption();

    TestDocument& m_document;
    Guard m_guard;
    QList<QLineEdit*> m_inputs;
    SizeFields* m_sizes;
    QList<QLabel*> m_labels; ///< those that change
    QList<ResultField*> m_results;
    QList<std::pair<VerdictSign*, FindSign>> m_signs;
    ResultSheet m_sheet;
    QList<ResultTable*> m_tables;
    QHash<QGroupBox*, QString> m_boxes; ///< frames, by the fields that they follow
    QList<QRadioButton*> m_options;
    QPlainTextEdit* m_conclusions = nullptr;
};
