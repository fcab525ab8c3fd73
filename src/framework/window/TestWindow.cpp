#include "framework/window/TestWindow.h"

#include "framework/window/TestMenus.h"

#include <QAbstractButton>
#include <QCloseEvent>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QRegularExpressionValidator>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

/// Sets a text without moving the caret of a field that shows it already.
void ShowText(QLineEdit* edit, const QString& text)
{
    if (edit->text() != text)
        edit->setText(text);
}

QLabel* Panel(const QString& name, QWidget* parent)
{
    auto* panel = new QLabel(parent);
    panel->setObjectName(name);
    panel->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    panel->setMinimumWidth(1);
    return panel;
}

} // namespace

TestWindow::TestWindow(std::unique_ptr<TestDocument> document, Frame& frame)
    : m_document(std::move(document)), m_frame(frame)
{
    setObjectName(m_document->Info().windowClass);
    setAttribute(Qt::WA_DeleteOnClose);
    const auto handlerOf = [this](const QString& name) { return HandlerOf(name); };
    m_menus = BuildMenus(this, m_document->Info(), handlerOf);
    m_toolbar = new QToolBar(this);
    m_toolbar->setObjectName(u"Toolbar1"_s);
    BuildToolbar(m_toolbar, m_document->Info(), handlerOf);
    m_tabs = new QTabWidget(this);
    m_tabs->setObjectName(u"SSTab1"_s);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_toolbar);
    layout->addWidget(m_tabs, 1);
    BuildStatusPanels();

    connect(m_document.get(), &TestDocument::Changed, this, &TestWindow::Refresh);
    connect(m_document.get(), &TestDocument::Calculated, this, &TestWindow::CaptionToToolTip);
    connect(m_document.get(), &TestDocument::Pointer, this, [this](bool hourglass) {
        if (hourglass)
            setCursor(Qt::WaitCursor);
        else
            unsetCursor();
    });
    connect(&m_document->Grid(), &DataGrid::Edited, this, [this] { SetTools(true); });
    connect(&m_document->Grid(), &DataGrid::DigitsChanged, this, &TestWindow::Refresh);
    SetTools(false);
}

std::function<void()> TestWindow::HandlerOf(const QString& name)
{
    using Routine = void (TestWindow::*)();
    static const QHash<QString, Routine> kRoutines = {
        {u"FileNuovo"_s, &TestWindow::FileNuovo},   {u"FileApri"_s, &TestWindow::FileApri},
        {u"FileSalva"_s, &TestWindow::FileSalva},   {u"FileSalvaNome"_s, &TestWindow::FileSalvaNome},
        {u"FileChiudi"_s, &TestWindow::FileChiudi}, {u"StrumentiCalcola"_s, &TestWindow::StrumentiCalcola},
        {u"New"_s, &TestWindow::FileNuovo},         {u"Open"_s, &TestWindow::FileApri},
        {u"Save"_s, &TestWindow::FileSalva},        {u"Sum"_s, &TestWindow::ToolbarSum},
        {u"Exit"_s, &TestWindow::FileChiudi},
    };
    static const QHash<QString, Arrangement> kArrangements = {
        {u"MnuFinestreTile"_s, Arrangement::TileHorizontally},
        {u"MnuFinestreVTile"_s, Arrangement::TileVertically},
        {u"MnuFinestreCascade"_s, Arrangement::Cascade},
        {u"MnuFinestreDisponiIcone"_s, Arrangement::Icons},
    };
    if (const Routine routine = kRoutines.value(name))
        return [this, routine] { RunCommand([this, routine] { (this->*routine)(); }); };
    if (const auto arrangement = kArrangements.find(name); arrangement != kArrangements.end())
        return [this, code = *arrangement] { m_frame.Arrange(code); };
    if (name.startsWith("MnuMetod"_L1))
        return HandlerOfMethod(name.sliced(8).toInt());
    return {};
}

std::function<void()> TestWindow::HandlerOfMethod(int index)
{
    const QString key = OtherTests(m_document->Info()).value(index);
    if (!m_frame.HasTest(key))
        return {};
    return [this, key] { m_frame.ShowTest(key); };
}

void TestWindow::RunCommand(const std::function<void()>& command)
{
    if (CommitGrids())
        Run(command);
}

/// False when a grid refuses what is being typed into it.
bool TestWindow::CommitGrids()
{
    return std::ranges::all_of(m_grids, &GridView::CommitEditor);
}

void TestWindow::Run(const std::function<void()>& event)
{
    QString message;
    try {
        event();
    } catch (const RuntimeFailure& failure) {
        message = FailureMessage(failure);
    }
    if (message.isEmpty())
        return;
    unsetCursor();
    const DocumentContext& context = m_document->Context();
    context.messages.Show(MessageIcon::Critical, context.define.AppTitle, message);
    // Once this event is over: the window that it runs in goes with the program.
    QMetaObject::invokeMethod(
        this, [this] { m_frame.EndProgram(); }, Qt::QueuedConnection);
}

void TestWindow::BuildStatusPanels()
{
    auto* bar = new QWidget(this);
    bar->setObjectName(u"StatusBar1"_s);
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(4, 2, 4, 2);
    m_descrBar = Panel(u"DescrBar"_s, bar);
    m_statusBar = Panel(u"StatusBar"_s, bar);
    row->addWidget(m_descrBar, 1);
    row->addWidget(m_statusBar, 1);
    layout()->addWidget(bar);
}

void TestWindow::AddPage(QWidget* page, const QString& caption)
{
    m_tabs->addTab(page, caption);
}

QWidget* TestWindow::HeaderFields()
{
    auto* fields = new QWidget;
    auto* form = new QFormLayout(fields);
    form->setContentsMargins(0, 0, 0, 0);
    for (int i = 0; i < m_document->InputCount(); ++i) {
        auto* edit = new QLineEdit;
        edit->setObjectName(u"aInputData%1"_s.arg(i));
        auto* label = FixedLabel(u"LabelInfo%1"_s.arg(i), TestDocument::InputCaption(i));
        label->setBuddy(edit);
        form->addRow(label, edit);
        connect(edit, &QLineEdit::textEdited, this,
                [this, i](const QString& text) { Run([&] { m_document->TypeInputData(i, text); }); });
        m_inputs.append(edit);
    }
    return fields;
}

QWidget* TestWindow::ConclusionsFrame(const QString& frameName)
{
    QGroupBox* box = FrameBox(frameName, u"Conclusioni"_s);
    m_conclusions = new QPlainTextEdit;
    m_conclusions->setObjectName(u"cConcl"_s);
    m_conclusions->setAccessibleName(u"Conclusioni"_s);
    m_conclusions->setReadOnly(true);
    m_conclusions->setTabChangesFocus(true);
    auto* layout = new QVBoxLayout(box);
    layout->addWidget(m_conclusions);
    return box;
}

QLineEdit* TestWindow::SizeEdit(QLatin1StringView control)
{
    static const QRegularExpression kUpToFourDigits(u"[0-9]{0,4}"_s);
    auto* edit = new QLineEdit;
    edit->setObjectName(control);
    edit->setValidator(new QRegularExpressionValidator(kUpToFourDigits, edit));
    edit->setMaximumWidth(edit->fontMetrics().horizontalAdvance(u"00000000"_s));
    edit->installEventFilter(this);
    connect(edit, &QLineEdit::textEdited, this,
            [this, control](const QString& text) { Run([&] { m_document->TypeSize(control, text); }); });
    m_sizes.append(edit);
    return edit;
}

QLabel* TestWindow::ResultLabel(const ResultField& field)
{
    QLabel* label = CaptionLabel(field.control);
    label->setAccessibleDescription(field.caption);
    label->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    label->setMinimumWidth(label->fontMetrics().horizontalAdvance(u"0000000.000"_s));
    return label;
}

QLabel* TestWindow::CaptionLabel(QLatin1StringView control)
{
    QLabel* label = FixedLabel(control, {});
    m_labels.append(label);
    return label;
}

QLabel* TestWindow::FixedLabel(const QString& name, const QString& text)
{
    auto* label = new QLabel(text);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    return label;
}

QGroupBox* TestWindow::FrameBox(const QString& name, const QString& title)
{
    auto* box = new QGroupBox(title);
    box->setObjectName(name);
    return box;
}

GridView* TestWindow::Grid(DataGrid& grid, const QString& name, const QString& caption)
{
    auto* view = new GridView(grid, name, caption);
    m_grids.append(view);
    connect(view, &GridView::Refused, this, [this, &grid](const QString& text) {
        Describe(u"\"%1\" non è un numero da 0 a %2"_s.arg(text, grid.LargestText()));
    });
    connect(&grid, &DataGrid::Edited, this, [this] { Describe(ReadNotice()); });
    return view;
}

void TestWindow::RefreshInputs()
{
    for (qsizetype i = 0; i < m_inputs.size(); ++i)
        ShowText(m_inputs[i], m_document->InputData(static_cast<int>(i)));
    for (QLineEdit* edit : std::as_const(m_sizes))
        ShowText(edit, m_document->ControlText(edit->objectName()));
}

void TestWindow::Refresh()
{
    setWindowTitle(m_document->Title());
    RefreshInputs();
    for (QLabel* label : std::as_const(m_labels)) {
        label->setText(m_document->ControlText(label->objectName()));
        label->setVisible(m_document->ControlVisible(label->objectName()));
    }
    m_conclusions->setPlainText(m_document->Conclusions());
    m_statusBar->setText(m_document->FormatText());
    Describe(ReadNotice());
}

/// What is said of a file that could be read in part only.
QString TestWindow::ReadNotice() const
{
    const auto stop = m_document->ReadStop();
    if (!stop)
        return {};
    return *stop == 0 ? u"Il file non è stato letto"_s
                      : u"File letto in parte: la lettura si è fermata alla riga %1"_s.arg(*stop);
}

void TestWindow::Describe(const QString& text)
{
    m_descrBar->setText(text);
}

void TestWindow::CaptionToToolTip()
{
    for (QLabel* label : findChildren<QLabel*>())
        label->setToolTip(label->text());
    for (QAbstractButton* button : findChildren<QAbstractButton*>()) {
        if (!button->text().isEmpty() && button->parentWidget() != m_toolbar)
            button->setToolTip(button->text());
    }
    for (QGroupBox* box : findChildren<QGroupBox*>())
        box->setToolTip(box->title());
}

void TestWindow::SetTools(bool enabled)
{
    SetToolbarState(m_toolbar, enabled);
    SetMenuState(m_menus, enabled);
}

void TestWindow::Activated()
{
    SetFileDialog(m_document->Context(), m_document->Info());
}

bool TestWindow::eventFilter(QObject* object, QEvent* event)
{
    auto* edit = qobject_cast<QLineEdit*>(object);
    if (m_sizes.contains(edit)) {
        if (event->type() == QEvent::FocusIn) {
            // The click that brings the focus places the caret after this, so that selecting comes later.
            QMetaObject::invokeMethod(edit, &QLineEdit::selectAll, Qt::QueuedConnection);
        } else if (event->type() == QEvent::FocusOut) {
            const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
            if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason &&
                reason != Qt::MenuBarFocusReason)
                LeaveSizeEdit(edit);
        }
    }
    return QWidget::eventFilter(object, event);
}

void TestWindow::LeaveSizeEdit(QLineEdit* edit)
{
    Run([&] {
        const QByteArray control = edit->objectName().toLatin1();
        if (!m_document->LeaveSize(QLatin1StringView(control)))
            QMetaObject::invokeMethod(
                edit, [edit] { edit->setFocus(); }, Qt::QueuedConnection);
    });
}

void TestWindow::closeEvent(QCloseEvent* event)
{
    if (CommitGrids() && CloseDocument(*m_document))
        event->accept();
    else
        event->ignore();
}

void TestWindow::FileNuovo()
{
    if (NewDocument(*m_document))
        SetTools(false);
}

void TestWindow::FileApri()
{
    if (OpenDocument(*m_document))
        SetTools(true);
}

void TestWindow::FileSalva()
{
    SaveDocument(*m_document);
}

void TestWindow::FileSalvaNome()
{
    SaveDocumentAs(*m_document);
}

void TestWindow::FileChiudi()
{
    // The frame's own window of this one closes, too.
    if (parentWidget() != nullptr)
        parentWidget()->close();
    else
        close();
}

void TestWindow::StrumentiCalcola()
{
    m_document->Calc();
    unsetCursor(); // also after a calculation that stopped without a word
}

void TestWindow::ToolbarSum()
{
    m_document->Calc();
}
