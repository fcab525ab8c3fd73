#include "framework/window/SizeFields.h"

#include "framework/document/DocumentShape.h"
#include "framework/document/TestDocument.h"
#include "framework/window/Forms.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QSignalBlocker>

#include <utility>

using namespace Qt::StringLiterals;

namespace
{

/// In characters. Longer captions go over several lines, none of them shorter than this.
constexpr int kLongCaption = 30;

QString RefusedText(const SizeField& field, const QString& text, const QString& now)
{
    const QString what = text.isEmpty() ? u"Il campo è vuoto"_s : u"\"%1\" non è ammesso"_s.arg(text);
    const QString most =
        field.refuses == SizeField::Refuses::Outside ? u" a %1"_s.arg(field.maximum) : u" in su"_s;
    return u"%1: sono ammessi i numeri da %2%3. Ora vale %4 (Ctrl+Z per tornare indietro)"_s.arg(
        what, QString::number(field.minimum), most, now);
}

} // namespace

SizeFields::SizeFields(TestDocument& document, Guard guard, QObject* parent)
    : QObject(parent), m_document(document), m_guard(std::move(guard))
{
}

QLineEdit* SizeFields::Make(QLatin1StringView control)
{
    auto* edit = new QLineEdit;
    edit->setObjectName(control);
    edit->setValidator(UpToFourDigits(edit));
    edit->setFixedWidth(edit->fontMetrics().horizontalAdvance(u"00000000"_s));
    edit->installEventFilter(this);
    connect(edit, &QLineEdit::textEdited, this, [this, control](const QString& text) {
        Q_EMIT Refused({});
        m_guard([&] { m_document.TypeSize(control, text); });
    });
    connect(edit, &QLineEdit::inputRejected, this,
            [this] { Q_EMIT Refused(u"Sono ammesse soltanto cifre, quattro al più"_s); });
    m_fields.append(edit);
    return edit;
}

void SizeFields::Add(QGridLayout* layout, int at, const SizeRow& row)
{
    const SizeField& field = m_document.SizeOf(row.control);
    QLineEdit* edit = Make(field.control);
    QLabel* caption = FixedLabel(row.labelName, field.caption);
    if (field.caption.size() > kLongCaption) {
        caption->setWordWrap(true);
        caption->setMinimumWidth(caption->fontMetrics().averageCharWidth() * kLongCaption);
    }
    caption->setBuddy(edit);
    layout->addWidget(caption, at, 0);
    layout->addWidget(edit, at, 1);
    layout->addWidget(FixedLabel(row.minimumName, field.MinimumCaption()), at, 2);
    layout->setColumnStretch(0, 1);
}

void SizeFields::Refresh()
{
    for (QLineEdit* edit : std::as_const(m_fields)) {
        const QString& text = m_document.ControlText(edit->objectName());
        if (edit->text() == text) // the caret of one that shows it already stays
            continue;
        if (edit == m_refused) { // what was refused is past
            m_refused = nullptr;
            Q_EMIT Refused({});
        }
        const QSignalBlocker quiet(edit); // a size of a file that can't be typed was not typed
        edit->setText(text);
    }
}

bool SizeFields::eventFilter(QObject* object, QEvent* event)
{
    auto* edit = qobject_cast<QLineEdit*>(object);
    if (edit == nullptr) // on its way out
        return false;
    if (BelongsToMenu(*event))
        return true;
    if (event->type() == QEvent::ContextMenu) {
        ShowMenu(edit, static_cast<QContextMenuEvent*>(event)->globalPos());
        return true;
    }
    if (event->type() == QEvent::KeyPress)
        return Key(*static_cast<QKeyEvent*>(event));
    if (event->type() != QEvent::FocusIn && event->type() != QEvent::FocusOut)
        return false;
    const bool passing = WillComeBack(*static_cast<QFocusEvent*>(event));
    if (event->type() == QEvent::FocusOut) {
        if (!passing && !Leave(edit))
            QMetaObject::invokeMethod(
                edit,
                [edit] {
                    if (IsInFront(*edit)) // another page, another window: what is seen there keeps the focus
                        edit->setFocus();
                },
                Qt::QueuedConnection);
    } else {
        if (!passing || m_current != edit)
            SelectLater(edit);
        m_current = edit;
    }
    return false;
}

/// Taking back goes through the history of the document, in which the whole typing is one step.
bool SizeFields::Key(const QKeyEvent& key)
{
    const bool undo = key.matches(QKeySequence::Undo);
    if (!undo && !IsRedo(key))
        return false;
    Turn(!undo);
    return true;
}

void SizeFields::Turn(bool forward)
{
    m_guard([&] { forward ? m_document.Redo() : m_document.Undo(); });
}

/// The field's own menu, in which the first two items take back and do again.
void SizeFields::ShowMenu(QLineEdit* edit, const QPoint& at)
{
    QMenu* menu = edit->createStandardContextMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const bool forward : {false, true}) {
        QAction* action = menu->actions()[forward ? 1 : 0];
        action->disconnect();
        action->setEnabled(true);
        connect(action, &QAction::triggered, this, [this, forward] { Turn(forward); });
    }
    menu->popup(at);
}

/// A number that nobody typed is not judged: a file's sizes may lie outside of the limits, and the focus may
/// stand in a field by chance. One that took a refused one's place is, until it is mended.
bool SizeFields::Leave(QLineEdit* edit)
{
    m_current = nullptr;
    if (!m_document.IsSizing() && edit != m_refused)
        return true;
    const QByteArray control = edit->objectName().toLatin1();
    const QString typed = edit->text();
    bool accepted = true; // where a failure ends it, too
    m_guard([&] { accepted = m_document.LeaveSize(QLatin1StringView(control)); });
    if (!accepted)
        m_refused = edit;
    if (edit == m_refused) // a field that the focus only passes through ends no other one's notice
        Q_EMIT Refused(accepted ? QString() : RefusedText(m_document.SizeOf(control), typed, edit->text()));
    if (accepted && edit == m_refused)
        m_refused = nullptr;
    return accepted;
}

bool SizeFields::Settle()
{
    QLineEdit* edit = m_current;
    if (edit == nullptr || !m_document.IsSizing())
        return true;
    const bool accepted = Leave(edit);
    m_current = edit;
    if (!accepted) {
        edit->setFocus();
        edit->selectAll();
    }
    return accepted;
}
