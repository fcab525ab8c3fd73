#include "framework/window/WindowFields.h"

#include "framework/document/DocumentShape.h"
#include "framework/document/TestDocument.h"
#include "framework/text/TextFunctions.h"
#include "framework/window/EditCommands.h"
#include "framework/window/Forms.h"
#include "framework/window/Furnishings.h"
#include "framework/window/ResultTable.h"

#include <QButtonGroup>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{

/// Leaves a field that shows the text already alone, line ends in it included: its caret stays, and what it
/// can take back.
void ShowInput(QLineEdit* edit, const QString& text)
{
    if (InOneLine(edit->text()) != text)
        edit->setText(text);
}

/// Sets a text, and with it the tool tip where a calculation has set one.
void ShowText(QLabel* label, const QString& text)
{
    label->setText(text);
    if (!label->toolTip().isEmpty())
        label->setToolTip(text);
}

/// Texts end their lines with CR LF, widgets with LF.
QString OneLineEnd(QString text)
{
    return text.replace("\r\n"_L1, "\n"_L1);
}

/// The first free row of a layout; that of an empty one is 0, which the layout does not say.
int NextRow(const QGridLayout* layout)
{
    return layout->count() == 0 ? 0 : layout->rowCount();
}

/// Where the text of a size field begins, its frame included.
constexpr int kSizeIndent = 4;

} // namespace

WindowFields::WindowFields(TestDocument& document, Guard guard, QObject* parent)
    : QObject(parent),
      m_document(document),
      m_guard(std::move(guard)),
      m_sizes(new SizeFields(document, m_guard, this))
{
}

QWidget* WindowFields::HeaderFields(const QString& labelName)
{
    auto* fields = new QWidget;
    auto* form = new QFormLayout(fields);
    form->setContentsMargins(0, 0, 0, 0);
    form->setRowWrapPolicy(QFormLayout::DontWrapRows);
    for (int i = 0; i < m_document.Shape().inputs; ++i) {
        auto* edit = new QLineEdit;
        edit->setObjectName(u"aInputData%1"_s.arg(i));
        edit->installEventFilter(this);
        QLabel* label = FixedLabel(labelName + QString::number(i), TestDocument::InputCaption(i));
        label->setBuddy(edit);
        form->addRow(label, edit);
        connect(edit, &QLineEdit::textEdited, this,
                [this, i](const QString& text) { m_guard([&] { m_document.TypeInputData(i, text); }); });
        m_inputs.append(edit);
    }
    return fields;
}

QGroupBox* WindowFields::ConclusionsFrame(const QString& frameName)
{
    QGroupBox* box = FrameBox(frameName, u"Conclusioni"_s);
    m_conclusions = new QPlainTextEdit;
    m_conclusions->setObjectName(u"cConcl"_s);
    m_conclusions->setAccessibleName(u"Conclusioni"_s);
    m_conclusions->setReadOnly(true);
    m_conclusions->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_sheet.AddConclusions(m_conclusions);
    auto* layout = new QVBoxLayout(box);
    layout->addWidget(m_conclusions);
    return box;
}

void WindowFields::AddSize(QGridLayout* layout, const SizeRow& row)
{
    const int at = NextRow(layout);
    const auto& typed = m_document.Shape().sizes;
    if (std::ranges::find(typed, row.control, &SizeField::control) != typed.end()) {
        m_sizes->Add(layout, at, row);
        return;
    }
    const QString& caption = m_document.Fields()[row.control].caption;
    QLabel* shown = FieldLabel(row.control);
    shown->setAccessibleDescription(caption);
    shown->setIndent(kSizeIndent);
    layout->addWidget(FixedLabel(row.labelName, caption), at, 0);
    layout->addWidget(shown, at, 1);
}

void WindowFields::AddOptions(QGridLayout* layout, int columns)
{
    auto* group = new QButtonGroup(this);
    for (const OptionField& option : m_document.Shape().options) {
        auto* button = new QRadioButton(option.caption);
        button->setObjectName(option.control);
        group->addButton(button, option.value);
        layout->addWidget(button, NextRow(layout), 0, 1, columns);
        button->setVisible(option.visible);
        m_options.append(button);
    }
    connect(group, &QButtonGroup::idClicked, this,
            [this](int value) { m_guard([&] { m_document.ChooseOption(value); }); });
}

void WindowFields::AddResults(QGridLayout* layout, const QList<ResultRow>& rows)
{
    qsizetype most = 0;
    int first = 1;
    for (const ResultRow& row : rows) {
        most = std::max(most, row.controls.size());
        first = row.symbol.first.isEmpty() ? first : 2;
    }
    const int columns = static_cast<int>(most) + first;
    for (const ResultRow& row : rows) {
        const int at = NextRow(layout);
        QLabel* label = row.labelName.isEmpty() ? nullptr : RowLabel(row);
        if (label != nullptr)
            layout->addWidget(label, at, 0, 1, row.controls.isEmpty() ? columns : 1);
        if (!row.symbol.first.isEmpty())
            layout->addWidget(FixedLabel(row.symbol.first, row.symbol.second), at, 1, Qt::AlignRight);
        QList<ResultField*> fields;
        for (const QLatin1StringView control : row.controls) {
            const int column = first + (row.onePlace ? 0 : static_cast<int>(fields.size()));
            fields.append(NewResult(control));
            if (label == nullptr)
                layout->addWidget(fields.constLast(), at, 0, 1, columns);
            else
                layout->addWidget(fields.constLast(), at, column);
        }
        m_sheet.AddRow(label, fields);
    }
    // What is wider than the results, a title or a verdict, leaves them as they are.
    layout->setColumnStretch(columns, 1);
}

void WindowFields::AddHeadings(QGridLayout* layout, const QList<std::pair<QString, QString>>& headings)
{
    const int at = NextRow(layout);
    QList<const QLabel*> labels;
    for (const auto& [name, text] : headings) {
        QLabel* label = FixedLabel(name, text);
        labels.append(label);
        layout->addWidget(label, at, static_cast<int>(labels.size()), Qt::AlignRight);
    }
    m_sheet.AddHeadings(labels);
}

void WindowFields::AddVerdict(QGridLayout* layout, QLatin1StringView control, const FindSign& sign)
{
    auto* line = new QHBoxLayout;
    auto* shown = new VerdictSign(control + u"Segno"_s);
    ResultField* verdict = NewResult(control);
    verdict->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    verdict->setWordWrap(true);
    QFont bold = verdict->font();
    bold.setBold(true);
    verdict->setFont(bold);
    line->addWidget(shown);
    line->addWidget(verdict, 1);
    layout->addLayout(line, NextRow(layout), 0, 1, layout->columnCount());
    m_signs.append({shown, sign});
    m_sheet.AddRow(nullptr, {verdict});
}

QLabel* WindowFields::RowLabel(const ResultRow& row)
{
    if (m_document.Fields().Has(row.labelName))
        return FieldLabel(row.labelName);
    if (!row.caption.isEmpty())
        return FixedLabel(row.labelName, row.caption);
    return FixedLabel(row.labelName, m_document.Fields()[row.controls.constFirst()].caption);
}

ResultField* WindowFields::NewResult(QLatin1StringView control)
{
    m_results.append(new ResultField(control, m_document.Fields()[control].caption));
    return m_results.constLast();
}

QLabel* WindowFields::FieldLabel(QAnyStringView control)
{
    QLabel* label = FixedLabel(control.toString(), m_document.ControlText(control));
    m_labels.append(label);
    return label;
}

ResultTable* WindowFields::TableView(QLatin1StringView control)
{
    if (m_document.Table(control) == nullptr)
        qFatal("the document has no table %s", control.data());
    TextTable& table = *m_document.Table(control);
    m_tables.append(new ResultTable(table));
    m_sheet.AddTable(m_tables.constLast());
    return m_tables.constLast();
}

QGroupBox* WindowFields::FrameBox(const QString& name, const QString& title)
{
    auto* box = new QGroupBox(title);
    box->setObjectName(name);
    return box;
}

QGroupBox* WindowFields::TitledBox(const QString& name, const QString& title)
{
    if (!m_document.Fields().Has(title))
        return FrameBox(name, title);
    QGroupBox* box = FrameBox(name, m_document.ControlText(title));
    m_boxes.insert(box, title);
    return box;
}

void WindowFields::Refresh()
{
    for (qsizetype i = 0; i < m_inputs.size(); ++i)
        ShowInput(m_inputs[i], m_document.InputData(static_cast<int>(i)));
    m_sizes->Refresh();
    for (QLabel* label : std::as_const(m_labels)) {
        ShowText(label, OneLineEnd(m_document.ControlText(label->objectName())));
        label->setVisible(m_document.ControlVisible(label->objectName()));
    }
    for (auto box = m_boxes.keyValueBegin(); box != m_boxes.keyValueEnd(); ++box) {
        box->first->setTitle(m_document.ControlText(box->second));
        if (auto* table = box->first->findChild<QTableView*>())
            table->setAccessibleName(box->first->title());
        if (!box->first->toolTip().isEmpty())
            box->first->setToolTip(box->first->title());
        box->first->setVisible(m_document.ControlVisible(box->second));
    }
    ShowOption();
    ShowResults();
    const QString conclusions = OneLineEnd(m_document.Conclusions());
    if (m_conclusions->toPlainText() != conclusions)
        m_conclusions->setPlainText(conclusions);
    ShowState();
}

void WindowFields::ShowResults()
{
    for (ResultField* field : std::as_const(m_results)) {
        field->ShowResult(OneLineEnd(m_document.ControlText(field->objectName())));
        field->setVisible(m_document.ControlVisible(field->objectName()));
    }
    for (const auto& [shown, sign] : std::as_const(m_signs))
        shown->ShowKind(sign(), m_document.Results() != ResultState::Current);
}

/// Results, tables and conclusions that are not those of what stands in the document are told from those that
/// are.
void WindowFields::ShowState()
{
    const ResultState state = m_document.Results();
    m_sheet.SetStale(state == ResultState::Stale);
    const QString stale = state == ResultState::Stale ? kStaleResults : QString();
    const auto show = [&](QWidget* widget, const QString& current) {
        Dim(widget, state != ResultState::Current);
        widget->setToolTip(state == ResultState::Current ? current : stale);
    };
    for (ResultField* field : std::as_const(m_results))
        show(field, field->text());
    for (ResultTable* table : std::as_const(m_tables))
        show(table, {});
    show(m_conclusions, {});
}

void WindowFields::ShowOption()
{
    const auto option = m_document.Option();
    for (QRadioButton* button : std::as_const(m_options)) {
        // None is selected after a file whose choice is none: an exclusive group would refuse that.
        button->group()->setExclusive(option.has_value());
        button->setChecked(option == button->group()->id(button));
    }
}

bool WindowFields::eventFilter(QObject* object, QEvent* event)
{
    auto* edit = qobject_cast<QLineEdit*>(object);
    if (edit != nullptr && event->type() == QEvent::FocusIn && m_document.Shape().inputsSelect &&
        !WillComeBack(*static_cast<QFocusEvent*>(event)))
        SelectLater(edit);
    if (edit != nullptr && event->type() == QEvent::KeyPress) {
        const auto& key = *static_cast<QKeyEvent*>(event);
        if (key.matches(QKeySequence::Paste))
            EditPaste(edit);
        else if (IsRedo(key))
            edit->redo();
        else
            return false;
        return true;
    }
    return BelongsToMenu(*event);
}
