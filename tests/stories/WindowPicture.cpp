#include "stories/WindowPicture.h"

#include "framework/grid/DataGrid.h"
#include "framework/window/ChartView.h"
#include "framework/window/CornerLabel.h"
#include "framework/window/Furnishings.h"
#include "framework/window/GridView.h"
#include "framework/window/NoticeBar.h"
#include "framework/window/ResultField.h"
#include "framework/window/StatusPanels.h"
#include "framework/window/TestMenus.h"
#include "shell/LogoView.h"

#include <QAbstractButton>
#include <QBitmap>
#include <QCheckBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHash>
#include <QHeaderView>
#include <QLineEdit>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QProgressDialog>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QTabBar>
#include <QTabWidget>
#include <QToolBar>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

QString Quoted(QString text)
{
    return u'"' + text.replace(u'\n', u"\\n"_s).replace(u'\t', u"\\t"_s) + u'"';
}

QString BarredLines(const QString& text)
{
    if (text.isEmpty())
        return {};
    QString lines;
    for (const QString& line : text.split(u'\n'))
        lines += u"\n  |"_s + (line.isEmpty() ? QString() : u' ' + line);
    return lines;
}

namespace
{

/// Whether the control is too small for its text.
bool IsCut(const QWidget* widget)
{
    // A panel ends a text that is too long in an ellipsis.
    if (!widget->isVisible() || qobject_cast<const StatusPanel*>(widget) != nullptr)
        return false;
    const auto* label = qobject_cast<const QLabel*>(widget);
    if (label != nullptr && label->wordWrap())
        return label->heightForWidth(label->width()) > label->height();
    const bool wide = label != nullptr || qobject_cast<const QAbstractButton*>(widget) != nullptr;
    const QSize hint = widget->sizeHint();
    return (wide && hint.width() > widget->width()) || (wide && hint.height() > widget->height());
}

QString Over(const QWidget* widget)
{
    if (!widget->isVisible() || widget->parentWidget() == nullptr ||
        widget->parentWidget()->layout() == nullptr)
        return {};
    for (const auto* other : widget->parentWidget()->findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
        if (other != widget && !other->isWindow() && other->isVisible() &&
            other->geometry().intersects(widget->geometry()))
            return u" OVER "_s + other->objectName();
    }
    return {};
}

/// A window's title as it is seen: two marks of change beside each other are the text of one.
QString SeenTitle(const QWidget* window)
{
    constexpr QChar kOne(u'\uE000');
    return Quoted(window->windowTitle().replace("[*][*]"_L1, kOne).remove("[*]"_L1).replace(kOne, "[*]"_L1));
}

/// A dialog that lies over no window.
QString Alone(const QDialog* dialog)
{
    return dialog->parentWidget() == nullptr ? u" alone"_s : QString();
}

/// Where a window stands in the area, in hundredths of its width and height; nothing where it is alone.
QString Place(const QMdiSubWindow* window)
{
    if (window->mdiArea()->subWindowList().size() < 2)
        return {};
    const QSize area = window->mdiArea()->viewport()->size();
    const auto part = [](int length, int whole) { return QString::number(qRound(100.0 * length / whole)); };
    const QPoint end = window->pos() + QPoint(window->width(), window->height());
    return u" from %1,%2 to %3,%4"_s.arg(part(window->x(), area.width()), part(window->y(), area.height()),
                                         part(end.x(), area.width()), part(end.y(), area.height()));
}

/// Where the colours of a story's picture are seen.
QString Colours(const LogoView* logo)
{
    const QImage seen = const_cast<LogoView*>(logo)->grab().toImage(); // Qt's grab is no const one
    QString places;
    for (const auto& [name, colour] : {std::pair(u"red"_s, Qt::red),
                                       {u"green"_s, Qt::green},
                                       {u"blue"_s, Qt::blue},
                                       {u"yellow"_s, Qt::yellow}}) {
        const QImage mask = seen.createMaskFromColor(QColor(colour).rgb(), Qt::MaskOutColor);
        const QRect place = QRegion(QBitmap::fromImage(mask)).boundingRect();
        if (!place.isEmpty())
            places += u", %1 %2,%3 %4 x %5"_s.arg(name)
                          .arg(place.x())
                          .arg(place.y())
                          .arg(place.width())
                          .arg(place.height());
    }
    return places;
}

/// The widgets that Tab reaches, in its order, whether they are shown and enabled at the moment or not.
QHash<const QWidget*, int> TabPlaces(const QWidget* window)
{
    QHash<const QWidget*, int> places;
    int place = 0;
    const QWidget* widget = window;
    do {
        const bool editor = widget->parentWidget() != nullptr &&
                            qobject_cast<const GridView*>(widget->parentWidget()->parentWidget()) != nullptr;
        if ((widget->focusPolicy() & Qt::TabFocus) != 0 && widget->focusProxy() == nullptr && !editor)
            places.insert(widget, ++place);
        widget = widget->nextInFocusChain();
    } while (widget != window);
    return places;
}

/// How a result, a table or the conclusions are told from others by ground, text and tool tip; empty for
/// other controls.
QString ResultStateOf(const QWidget* widget)
{
    const auto* field = qobject_cast<const ResultField*>(widget);
    const auto* table = qobject_cast<const QTableView*>(widget);
    if (field == nullptr && qobject_cast<const QPlainTextEdit*>(widget) == nullptr &&
        (table == nullptr || qobject_cast<const GridView*>(table) != nullptr))
        return {};
    const bool dimmed = widget->palette().color(QPalette::Text) == QColor(kDimmedColor);
    const QString tip = widget->toolTip();
    if (!dimmed && tip == (field == nullptr ? QString() : field->text()))
        return u"current"_s;
    return dimmed ? tip.isEmpty() ? u"none"_s : Quoted(tip) : u"UNTOLD "_s + Quoted(tip);
}

class PictureMaker
{
public:
    Picture Take() { return std::move(m_picture); }
    void Show(const QWidget* widget);

private:
    void Line(const QString& role, const QString& name, const QString& rest)
    {
        m_path = m_path.first(m_depth);
        QString key = m_path.join(u'/') + u'/' + role + u' ' + name;
        const int same = m_seen[key]++;
        if (same > 0)
            key += u'#' + QString::number(same);
        m_path.append(role + u' ' + name);
        QString text = role;
        for (const QString& part : {name, rest.trimmed()}) {
            if (!part.isEmpty())
                text += u' ' + part;
        }
        m_picture.append({key, text, static_cast<int>(m_depth)});
    }
    void Control(const QString& role, const QWidget* widget, const QString& text);
    void Inside(const QWidget* widget);
    void InLayout(const QLayout* layout);
    template<typename Text>
    void Actions(const QString& role, const QList<QAction*>& actions, const Text& textOf);
    void Menu(const QMenu* menu);
    void Toolbar(const QToolBar* toolbar);
    void Tabs(const QTabWidget* tabs);
    void Table(const QString& role, const QTableView* view);
    void Box(const QMessageBox* box);
    void Notice(const NoticeBar* bar);
    bool Special(const QWidget* widget);
    bool Simple(const QWidget* widget);

    Picture m_picture;
    QStringList m_path;
    QHash<QString, int> m_seen;
    QHash<const QWidget*, int> m_tabs;
    QHash<const QWidget*, QString> m_cells; ///< row and column in the layout
    QSet<QString> m_resultStates;           ///< of the results of a window: told once
    qsizetype m_depth = 0;
};

/// What all controls have, behind what is its own.
void PictureMaker::Control(const QString& role, const QWidget* widget, const QString& text)
{
    QString line = text;
    if (m_cells.contains(widget))
        line += u" at "_s + m_cells[widget];
    if (m_tabs.contains(widget))
        line += u" tab "_s + QString::number(m_tabs[widget]);
    if (!widget->accessibleName().isEmpty())
        line += u" named "_s + Quoted(widget->accessibleName());
    if (!widget->accessibleDescription().isEmpty() && !text.contains(Quoted(widget->accessibleDescription())))
        line += u" described "_s + Quoted(widget->accessibleDescription());
    if (const QString state = ResultStateOf(widget); !state.isEmpty())
        m_resultStates.insert(state);
    else if (!widget->toolTip().isEmpty())
        line += text.contains(Quoted(widget->toolTip())) ? u" tip"_s : u" tip "_s + Quoted(widget->toolTip());
    if (widget->isHidden() && !widget->isWindow())
        line += u" hidden"_s;
    if (!widget->isEnabled() && (widget->parentWidget() == nullptr || widget->parentWidget()->isEnabled()))
        line += u" grey"_s;
    if (IsCut(widget))
        line += u" CUT"_s;
    line += Over(widget);
    Line(role, widget->objectName(), line);
}

/// Of a menu or a toolbar, inside of its line.
template<typename Text>
void PictureMaker::Actions(const QString& role, const QList<QAction*>& actions, const Text& textOf)
{
    ++m_depth;
    for (const QAction* action : actions) {
        if (action->menu() != nullptr)
            Menu(action->menu());
        else if (action->isSeparator())
            Line(u"-"_s, {}, {});
        else
            Line(role, action->objectName(), textOf(action) + (action->isEnabled() ? QString() : u" grey"_s));
    }
    --m_depth;
}

void PictureMaker::Menu(const QMenu* menu)
{
    Line(u"menu"_s, menu->objectName(), Quoted(menu->title()));
    Actions(u"item"_s, menu->actions(), [](const QAction* action) {
        QString line = Quoted(action->text());
        if (!action->shortcut().isEmpty())
            line += u' ' + action->shortcut().toString();
        if (!action->isVisible())
            line += u" hidden"_s;
        return line + (action->isChecked() ? u" ticked"_s : QString());
    });
}

void PictureMaker::Toolbar(const QToolBar* toolbar)
{
    Control(u"toolbar"_s, toolbar, {});
    Actions(u"button"_s, toolbar->actions(), [toolbar](const QAction* action) {
        QString line = Quoted(action->toolTip());
        if (action->statusTip() != action->toolTip() || action->text() != action->toolTip())
            line += u" status "_s + Quoted(action->statusTip()) + u" text "_s + Quoted(action->text());
        if (action->icon().isNull() || action->icon().pixmap(24).isNull())
            line += u" NO ICON"_s;
        const QWidget* button =
            toolbar->widgetForAction(const_cast<QAction*>(action)); // asks for no const one
        return line + (toolbar->isVisible() && !button->isVisible() ? u" UNSEEN"_s : QString());
    });
}

void PictureMaker::Tabs(const QTabWidget* tabs)
{
    Control(u"tabs"_s, tabs, {});
    ++m_depth;
    for (int i = 0; i < tabs->count(); ++i) {
        Line(u"page"_s, {}, Quoted(tabs->tabText(i)) + (i == tabs->currentIndex() ? u" front"_s : QString()));
        ++m_depth;
        const auto* area = qobject_cast<const QScrollArea*>(tabs->widget(i));
        Show(area != nullptr ? area->widget() : tabs->widget(i));
        --m_depth;
    }
    --m_depth;
}

/// The rows, several that show the same as one line.
void PictureMaker::Table(const QString& role, const QTableView* view)
{
    const QAbstractItemModel* model = view->model();
    QString line = u"%1 x %2"_s.arg(model->rowCount()).arg(model->columnCount());
    const auto headers = [&](Qt::Orientation orientation, int count) {
        QStringList texts;
        for (int i = 0; i < count; ++i)
            texts += model->headerData(i, orientation).toString();
        return texts.join(u'|');
    };
    if (view->horizontalHeader()->isVisibleTo(view))
        line += u" columns "_s + Quoted(headers(Qt::Horizontal, model->columnCount()));
    const QModelIndexList selected = view->selectionModel()->selectedIndexes();
    const QModelIndex at = view->currentIndex();
    if (at.isValid())
        line += u" caret %1,%2"_s.arg(at.row() + 1).arg(at.column() + 1);
    if (selected.size() > 1) {
        const QItemSelectionRange block = view->selectionModel()->selection().constFirst();
        line += u" block %1,%2 to %3,%4"_s.arg(block.top() + 1)
                    .arg(block.left() + 1)
                    .arg(block.bottom() + 1)
                    .arg(block.right() + 1);
    }
    Control(role, view, line);
    ++m_depth;
    if (const auto* corner = view->findChild<CornerLabel*>())
        Line(u"corner"_s, {}, Quoted(corner->text()));
    const auto cells = [&](int row) {
        QStringList texts;
        for (int col = 0; col < model->columnCount(); ++col) {
            const QModelIndex index = model->index(row, col);
            const bool locked = role == u"grid" && !index.flags().testFlag(Qt::ItemIsEditable);
            const QString text = index.data().toString();
            texts += locked ? u"locked"_s : text.isEmpty() ? u"empty"_s : text;
        }
        return texts.join(u" | "_s);
    };
    const bool titled = view->verticalHeader()->isVisibleTo(view);
    const auto title = [&](int row) {
        return titled ? model->headerData(row, Qt::Vertical).toString() : QString::number(row + 1);
    };
    for (int row = 0, last = 0; row < model->rowCount(); row = last + 1) {
        last = row;
        while (last + 1 < model->rowCount() && cells(last + 1) == cells(row))
            ++last;
        const QString rows = last > row ? title(row) + u" to "_s + title(last) : title(row);
        Line(u"row"_s, title(row), {});
        m_picture.last().text = u"row %1: %2"_s.arg(rows, cells(row));
    }
    --m_depth;
}

void PictureMaker::Box(const QMessageBox* box)
{
    static const QHash<QMessageBox::Icon, QString> kIcons = {{QMessageBox::NoIcon, u"no icon"_s},
                                                             {QMessageBox::Information, u"information"_s},
                                                             {QMessageBox::Warning, u"exclamation"_s},
                                                             {QMessageBox::Critical, u"critical"_s},
                                                             {QMessageBox::Question, u"question"_s}};
    Line(u"box"_s, kIcons[box->icon()], Quoted(box->windowTitle()) + Alone(box));
    m_picture.last().text += BarredLines(box->text().remove(u'\u200B')); // places where a line may break
    ++m_depth;
    QStringList buttons;
    for (const auto* button : box->buttons()) {
        buttons += Quoted(button->text());
        if (button == box->defaultButton())
            buttons.last() += u" default"_s;
        if (button == box->escapeButton())
            buttons.last() += u" escape"_s;
    }
    Line(u"buttons"_s, {}, buttons.join(u", "_s));
    --m_depth;
}

/// Its text and its actions, while it tells something.
void PictureMaker::Notice(const NoticeBar* bar)
{
    if (bar->isHidden())
        return;
    QString line = Quoted(bar->findChild<QLabel*>()->text());
    for (const QToolButton* button : bar->findChildren<QToolButton*>()) {
        if (!button->isHidden() && !button->text().isEmpty())
            line += u' ' + Quoted(button->text());
    }
    Line(u"notice"_s, {}, line);
}

bool PictureMaker::Special(const QWidget* widget)
{
    if (const auto* box = qobject_cast<const QMessageBox*>(widget)) {
        Box(box);
    } else if (const auto* files = qobject_cast<const QFileDialog*>(widget)) {
        const bool save = files->acceptMode() == QFileDialog::AcceptSave;
        const bool folder = files->fileMode() == QFileDialog::Directory;
        Line(folder ? u"folder dialog"_s
             : save ? u"save dialog"_s
                    : u"open dialog"_s,
             {},
             u"%1 in %2 %3"_s.arg(Quoted(files->windowTitle()), files->directory().path(),
                                  Quoted(files->nameFilters().join(u';'))) +
                 Alone(files));
    } else if (const auto* progress = qobject_cast<const QProgressDialog*>(widget)) {
        Line(u"progress"_s, {}, Quoted(progress->windowTitle()) + u' ' + Quoted(progress->labelText()));
    } else if (const auto* bar = qobject_cast<const QMenuBar*>(widget)) {
        for (const QAction* action : bar->actions())
            Menu(action->menu());
    } else if (const auto* menu = qobject_cast<const QMenu*>(widget)) {
        Menu(menu);
    } else if (const auto* notice = qobject_cast<const NoticeBar*>(widget)) {
        Notice(notice);
    } else if (const auto* toolbar = qobject_cast<const QToolBar*>(widget)) {
        Toolbar(toolbar);
    } else if (const auto* tabs = qobject_cast<const QTabWidget*>(widget)) {
        Tabs(tabs);
    } else if (const auto* grid = qobject_cast<const GridView*>(widget)) {
        Table(u"grid"_s, grid);
    } else if (const auto* table = qobject_cast<const QTableView*>(widget)) {
        Table(u"table"_s, table);
    } else if (const auto* area = qobject_cast<const QMdiArea*>(widget)) {
        for (const auto* hint : area->viewport()->findChildren<QLabel*>(Qt::FindDirectChildrenOnly))
            Show(hint);
        for (const QMdiSubWindow* window : area->subWindowList())
            Show(window);
    } else {
        return false;
    }
    return true;
}

bool PictureMaker::Simple(const QWidget* widget)
{
    if (const auto* panel = qobject_cast<const StatusPanel*>(widget)) {
        Control(u"panel"_s, panel, Quoted(panel->text()) + (panel->IsInset() ? QString() : u" raised"_s));
    } else if (const auto* label = qobject_cast<const QLabel*>(widget)) {
        QString line = Quoted(label->text());
        if (label->buddy() != nullptr)
            line += u" for "_s + label->buddy()->objectName();
        if (label->font().bold())
            line += u" bold"_s;
        if (label->wordWrap())
            line += u" wraps"_s;
        if (label->alignment().testFlag(Qt::AlignRight))
            line += u" right"_s;
        if (label->textInteractionFlags().testFlag(Qt::TextSelectableByMouse))
            line += u" selectable"_s;
        if (label->hasSelectedText())
            line += u" selected "_s + Quoted(label->selectedText());
        Control(u"label"_s, label, line);
    } else if (const auto* field = qobject_cast<const QLineEdit*>(widget)) {
        QString line = Quoted(field->text());
        if (field->hasSelectedText())
            line += u" selected "_s + Quoted(field->selectedText());
        else if (field->hasFocus() && field->cursorPosition() != field->text().size())
            line += u" caret "_s + QString::number(field->cursorPosition());
        Control(u"field"_s, field, line + (field->isReadOnly() ? u" read-only"_s : QString()));
    } else if (const auto* edit = qobject_cast<const QPlainTextEdit*>(widget)) {
        Control(u"text"_s, edit, edit->isReadOnly() ? u"read-only"_s : QString());
        m_picture.last().text += BarredLines(edit->toPlainText());
    } else if (const auto* button = qobject_cast<const QAbstractButton*>(widget)) {
        const bool option = qobject_cast<const QRadioButton*>(button) != nullptr;
        const auto* push = qobject_cast<const QPushButton*>(button);
        QString line = Quoted(button->text()) + (button->isChecked() ? u" ticked"_s : QString());
        if (push != nullptr)
            line += push->isDefault() ? u" default"_s : push->autoDefault() ? u" enter"_s : QString();
        Control(option ? u"option"_s : push != nullptr ? u"push"_s : u"check"_s, button, line);
    } else if (const auto* chart = qobject_cast<const ChartView*>(widget)) {
        Control(u"chart"_s, chart, Quoted(chart->accessibleDescription()));
    } else if (const auto* logo = qobject_cast<const LogoView*>(widget)) {
        Control(u"logo"_s, logo,
                u"%1 x %2 twips"_s.arg(logo->ShownSize().width()).arg(logo->ShownSize().height()) +
                    Colours(logo));
    } else {
        return false;
    }
    return true;
}

void PictureMaker::InLayout(const QLayout* layout)
{
    for (int i = 0; i < layout->count(); ++i) {
        QLayoutItem* item = layout->itemAt(i);
        if (item->layout() != nullptr) {
            InLayout(item->layout());
            continue;
        }
        if (item->widget() == nullptr)
            continue;
        if (const auto* grid = qobject_cast<const QGridLayout*>(layout)) {
            int row = 0;
            int col = 0;
            int rows = 0;
            int cols = 0;
            grid->getItemPosition(i, &row, &col, &rows, &cols);
            m_cells.insert(item->widget(), u"%1,%2"_s.arg(row).arg(col));
        }
        Show(item->widget());
    }
}

void PictureMaker::Inside(const QWidget* widget)
{
    if (const auto* frame = qobject_cast<const QMainWindow*>(widget)) {
        Show(frame->menuBar());
        Show(frame->centralWidget());
        return;
    }
    if (widget->layout() != nullptr) {
        InLayout(widget->layout());
        return;
    }
    for (const QObject* child : widget->children()) {
        if (const auto* inner = qobject_cast<const QWidget*>(child); inner != nullptr && !inner->isWindow())
            Show(inner);
    }
}

void PictureMaker::Show(const QWidget* widget)
{
    if (Special(widget) || Simple(widget))
        return;
    const bool window = widget->isWindow() || qobject_cast<const QMdiSubWindow*>(widget) != nullptr;
    const auto* frame = qobject_cast<const QGroupBox*>(widget);
    if (window) {
        m_tabs.insert(TabPlaces(widget));
        const auto* child = qobject_cast<const QMdiSubWindow*>(widget);
        QString line = SeenTitle(widget);
        if (child != nullptr && child->mdiArea()->currentSubWindow() == child)
            line += u" active"_s;
        if (widget->isMinimized())
            line += u" minimized"_s;
        if (widget->isMaximized())
            line += u" maximized"_s;
        if (child != nullptr)
            line += Place(child);
        Line(child != nullptr                                  ? u"child"_s
             : qobject_cast<const QDialog*>(widget) != nullptr ? u"dialog"_s
                                                               : u"frame"_s,
             child != nullptr && child->widget() != nullptr ? child->widget()->objectName()
                                                            : widget->objectName(),
             line);
    } else if (frame != nullptr) {
        Control(u"frame"_s, frame, Quoted(frame->title()));
    }
    const bool deeper = window || frame != nullptr;
    m_depth += deeper ? 1 : 0;
    const auto* child = qobject_cast<const QMdiSubWindow*>(widget);
    if (child != nullptr && child->widget() != nullptr)
        Inside(child->widget());
    else
        Inside(widget);
    if (window && !m_resultStates.isEmpty()) {
        QStringList states(m_resultStates.begin(), m_resultStates.end());
        states.sort();
        Line(u"results"_s, {}, states.join(u" and "_s));
        m_resultStates.clear();
    }
    m_depth -= deeper ? 1 : 0;
}

} // namespace

Picture PictureOf(const QWidget* widget)
{
    PictureMaker maker;
    if (widget != nullptr)
        maker.Show(widget);
    return maker.Take();
}

QStringList Changes(const Picture& before, const Picture& after)
{
    QHash<QString, QString> old;
    for (const PictureLine& line : before)
        old.insert(line.key, line.text);
    QSet<QString> left;
    QStringList changes;
    int newDepth = 0;
    bool inNew = false;
    for (const PictureLine& line : after) {
        left.insert(line.key);
        const bool known = old.contains(line.key);
        if (inNew && line.depth <= newDepth)
            inNew = false;
        if (known && old[line.key] == line.text)
            continue;
        if (!known && !inNew) {
            inNew = true;
            newDepth = line.depth;
        }
        const int indent = inNew ? line.depth - newDepth : 0;
        for (const QString& part : line.text.split(u'\n'))
            changes += QString(2 * indent, u' ') + part;
    }
    // What stood inside of something that is gone needs no line of its own.
    int goneDepth = -1;
    for (const PictureLine& line : before) {
        if (goneDepth >= 0 && line.depth > goneDepth && !left.contains(line.key))
            continue;
        goneDepth = -1;
        if (!left.contains(line.key)) {
            changes += u"gone: "_s + line.text.section(u'\n', 0, 0);
            goneDepth = line.depth;
        }
    }
    return changes;
}
