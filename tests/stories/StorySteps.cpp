// What each step of a story does, with mouse and keys.
#include "stories/Story.h"

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDir>
#include <QFileDialog>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenuBar>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QTabBar>
#include <QTableView>
#include <QTest>
#include <QToolBar>

using namespace Qt::StringLiterals;

namespace
{

QPoint CellMiddle(const QTableView* view, const QString& row, const QString& col)
{
    return view->visualRect(view->model()->index(row.toInt() - 1, col.toInt() - 1)).center();
}

void MoveMouse(QWidget* widget, const QPoint& at, Qt::MouseButtons buttons = Qt::NoButton)
{
    QMouseEvent move(QEvent::MouseMove, at, widget->mapToGlobal(QPointF(at)), Qt::NoButton, buttons, {});
    QApplication::sendEvent(widget, &move);
}

} // namespace

QWidget* Story::Window() const
{
    if (QWidget* dialog = QApplication::activeModalWidget())
        return dialog;
    if (m_program == nullptr)
        throw NotDone{u"the program has ended"_s};
    return &m_program->Window();
}

/// By its name, a button of a dialog also by its text; the one that is seen where there are several.
QWidget* Story::Find(const QString& name) const
{
    QWidget* window = Window();
    if (const auto* frame = qobject_cast<MainWindow*>(window)) {
        const QMdiSubWindow* active = frame->findChild<QMdiArea*>()->currentSubWindow();
        if (active != nullptr && active->widget()->findChild<QObject*>(name) != nullptr)
            window = active->widget();
    }
    for (QWidget* widget : window->findChildren<QWidget*>(name)) {
        if (widget->isVisible())
            return widget;
    }
    for (auto* button : window->findChildren<QAbstractButton*>()) {
        if (button->isVisible() && button->text() == name)
            return button;
    }
    for (auto* toolbar : window->findChildren<QToolBar*>()) {
        for (QAction* action : toolbar->actions()) {
            if (action->objectName() == name)
                return toolbar->widgetForAction(action);
        }
    }
    throw NotDone{u"nothing that is seen is named "_s + name};
}

void Story::Click(const Step& step)
{
    QWidget* widget = Find(step.words.constFirst());
    const QRect inside = widget->rect();
    // An option's mark: beside its text there may be room that takes no click.
    const bool mark = qobject_cast<QAbstractButton*>(widget) != nullptr &&
                      qobject_cast<QAbstractButton*>(widget)->isCheckable();
    const QPoint at = mark ? QPoint(6, inside.center().y()) : inside.center();
    if (step.verb == u"doubleclick") {
        QTest::mouseClick(widget, Qt::LeftButton, {}, at);
        QTest::mouseDClick(widget, Qt::LeftButton, {}, at);
    } else if (step.verb == u"rightclick") {
        auto* view = qobject_cast<QAbstractScrollArea*>(widget);
        QWidget* target = view != nullptr ? view->viewport() : widget;
        QTest::mouseClick(target, Qt::RightButton, {}, at);
        QContextMenuEvent menu(QContextMenuEvent::Mouse, at, target->mapToGlobal(at));
        QApplication::sendEvent(target, &menu);
    } else if (step.verb == u"hover") {
        auto* view = qobject_cast<QAbstractScrollArea*>(widget);
        MoveMouse(view != nullptr ? view->viewport() : widget, QPoint(3, 3));
    } else {
        QTest::mouseClick(widget, Qt::LeftButton, {}, at);
    }
}

/// With the mouse. An item that is grey takes no click; the menu stays then, and is left by the keyboard.
void Story::Pick(QMenu* menu, const QString& name)
{
    for (QAction* action : menu->actions()) {
        const QString& known =
            action->menu() != nullptr ? action->menu()->objectName() : action->objectName();
        if (known != name && action->text() != name)
            continue;
        QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(action).center());
        if (action->menu() != nullptr && !QTest::qWaitFor([action] { return action->menu()->isVisible(); }))
            throw NotDone{u"the menu does not open"_s};
        return;
    }
    throw NotDone{u"no item "_s + name};
}

void Story::MenuStep(const QStringList& path)
{
    QMenuBar* bar = m_program->Window().menuBar();
    for (QAction* action : bar->actions()) {
        if (action->menu()->objectName() == path.constFirst())
            QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(action).center());
    }
    for (const QString& name : path.sliced(1)) {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (menu == nullptr)
            throw NotDone{u"no menu for "_s + name};
        Pick(menu, name);
    }
    if (QApplication::activePopupWidget() == nullptr || path.size() == 1)
        return;
    m_told += u"  the item is grey"_s;
    while (auto* menu = QApplication::activePopupWidget())
        menu->close();
}

void Story::Press(const QString& keys)
{
    const QKeyCombination key = QKeySequence(keys)[0];
    if (key.key() == Qt::Key_unknown)
        throw NotDone{u"no such key"_s};
    QWidget* target = QApplication::activePopupWidget();
    if (target == nullptr)
        target = QApplication::focusWidget();
    if (target == nullptr)
        target = Window();
    if (key.key() == Qt::Key_Menu) { // the desktop makes this of it
        QContextMenuEvent menu(QContextMenuEvent::Keyboard, {}, target->mapToGlobal(QPoint()));
        QApplication::sendEvent(target, &menu);
        return;
    }
    QTest::keyClick(target, key.key(), key.keyboardModifiers());
}

void Story::Type(const QString& text)
{
    for (const QChar c : text) {
        QWidget* target = QApplication::focusWidget() != nullptr ? QApplication::focusWidget() : Window();
        if (c.unicode() < 128)
            QTest::keyClicks(target, c);
        else
            QTest::sendKeyEvent(QTest::Click, target, Qt::Key_unknown, c, Qt::NoModifier);
    }
}

/// cell GRID ROW COLUMN [to ROW COLUMN], counted from 1: a click, or a drag over several cells. Row 0 are the
/// headers.
void Story::Cell(const Step& step)
{
    auto* view = qobject_cast<QTableView*>(Find(step.words[0]));
    if (view == nullptr)
        throw NotDone{u"no grid"_s};
    QWidget* target = view->viewport();
    QPoint from = CellMiddle(view, step.words[1], step.words[2]);
    if (step.words[1] == u"0") {
        target = view->horizontalHeader()->viewport();
        const int column = step.words[2].toInt() - 1;
        from = {view->columnViewportPosition(column) + view->columnWidth(column) / 2, target->height() / 2};
    }
    if (step.words.size() < 6) {
        QTest::mouseClick(target, Qt::LeftButton, {}, from);
        if (step.verb == u"doublecell")
            QTest::mouseDClick(target, Qt::LeftButton, {}, from);
        return;
    }
    const QPoint to = CellMiddle(view, step.words[4], step.words[5]);
    QTest::mousePress(view->viewport(), Qt::LeftButton, {}, from);
    MoveMouse(view->viewport(), (from + to) / 2, Qt::LeftButton);
    MoveMouse(view->viewport(), to, Qt::LeftButton);
    QTest::mouseRelease(view->viewport(), Qt::LeftButton, {}, to);
}

/// drag GRID ROW COLUMN to ROW COLUMN: by the upper border of a cell of the selected block.
void Story::Drag(const QStringList& words)
{
    auto* view = qobject_cast<QTableView*>(Find(words[0]));
    const QRect cell = view->visualRect(view->model()->index(words[1].toInt() - 1, words[2].toInt() - 1));
    const QPoint from(cell.center().x(), cell.top() + 1);
    const QPoint to = CellMiddle(view, words[4], words[5]);
    QTest::mousePress(view->viewport(), Qt::LeftButton, {}, from);
    MoveMouse(view->viewport(), (from + to) / 2, Qt::LeftButton);
    MoveMouse(view->viewport(), to, Qt::LeftButton);
    QTest::mouseRelease(view->viewport(), Qt::LeftButton, {}, to);
}

/// On the frame, as a file manager offers them: to be copied or moved.
void Story::Drop(const QStringList& names)
{
    QMimeData files;
    QList<QUrl> urls;
    for (const QString& name : names)
        urls += QUrl::fromLocalFile(m_home->filePath(name));
    files.setUrls(urls);
    QWidget* target = m_program->Window().findChild<QMdiArea*>()->viewport();
    const QPoint at = target->rect().bottomRight() - QPoint(5, 5);
    const Qt::DropActions actions = Qt::CopyAction | Qt::MoveAction;
    QDragEnterEvent enter(at, actions, &files, Qt::LeftButton, {});
    QApplication::sendEvent(target, &enter);
    if (!enter.isAccepted())
        throw NotDone{u"nothing takes it"_s};
    QDropEvent drop(at, actions, &files, Qt::LeftButton, {});
    drop.setDropAction(Qt::MoveAction);
    QApplication::sendEvent(target, &drop);
    if (drop.dropAction() == Qt::MoveAction)
        m_told += u"  the files are gone from their place"_s;
}

void Story::FilesStep(const Step& step)
{
    const QString target = m_home->filePath(step.words.constLast());
    if (step.verb == u"copy") {
        QFile::remove(target);
        if (!QFile::copy(QStringLiteral(QUOREL_TEST_DATA "/") + step.words[0], target))
            throw NotDone{u"it can't be copied"_s};
    } else if (step.verb == u"write") {
        QFile file(m_home->filePath(step.words[0]));
        if (!file.open(QIODevice::WriteOnly) || file.write(step.words[1].toLatin1()) < 0)
            throw NotDone{u"it can't be written"_s};
    } else if (step.verb == u"folder") {
        QDir(m_home->path()).mkpath(step.words[0]);
    } else if (step.verb == u"picture") {
        QImage image(step.words[1].toInt(), step.words[2].toInt(), QImage::Format_RGB32);
        const QSize half = image.size() / 2;
        image.fill(Qt::yellow);
        QPainter painter(&image);
        painter.fillRect(0, 0, half.width(), half.height(), Qt::red);
        painter.fillRect(half.width(), 0, half.width(), half.height(), Qt::green);
        painter.fillRect(0, half.height(), half.width(), half.height(), Qt::blue);
        if (!image.save(m_home->filePath(step.words[0])))
            throw NotDone{u"it can't be written"_s};
    } else if (step.verb == u"remove") {
        QFile::remove(target);
        QDir(target).removeRecursively();
    }
}

/// The name is typed; a name without a folder is in the folder that the dialog shows.
void Story::FileDialogStep(const QString& name)
{
    auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr)
        throw NotDone{u"no file dialog"_s};
    auto* field = dialog->findChild<QLineEdit*>(u"fileNameEdit"_s);
    field->setText(name);
    QTest::keyClick(field, Qt::Key_Return);
}

void Story::Run(const Step& step)
{
    const QString& verb = step.verb;
    const auto word = [&step](qsizetype i) { return step.words.value(i); };
    if (verb == u"start") {
        Start();
    } else if (verb == u"click" || verb == u"doubleclick" || verb == u"rightclick" || verb == u"hover") {
        Click(step);
    } else if (verb == u"menu") {
        MenuStep(word(0).split(u'/'));
    } else if (verb == u"pick") {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (menu == nullptr)
            throw NotDone{u"no menu is open"_s};
        Pick(menu, word(0));
    } else if (verb == u"page") {
        auto* bar = Find(u"SSTab1"_s)->findChild<QTabBar*>();
        for (int i = 0; i < bar->count(); ++i) {
            if (bar->tabText(i) == word(0))
                QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(i).center());
        }
    } else if (verb == u"press") {
        for (const QString& keys : step.words)
            Press(keys);
    } else if (verb == u"type") {
        Type(word(0));
        for (const QString& keys : step.words.sliced(1))
            Press(keys);
    } else if (verb == u"cell" || verb == u"doublecell") {
        Cell(step);
    } else if (verb == u"drag") {
        Drag(step.words);
    } else if (verb == u"drop") {
        Drop(step.words);
    } else if (verb == u"clipboard") {
        QGuiApplication::clipboard()->setText(word(0));
    } else if (verb == u"file") {
        FileDialogStep(word(0));
    } else if (verb == u"close") {
        Window()->close();
    } else if (verb == u"minimize" || verb == u"maximize" || verb == u"shift") {
        QMdiSubWindow* child = m_program->Window().findChild<QMdiArea*>()->currentSubWindow();
        if (verb == u"maximize")
            child->showMaximized();
        else if (verb == u"minimize")
            child->showMinimized();
        else
            child->move(child->pos() + QPoint(word(0).toInt(), word(1).toInt()));
    } else if (verb == u"title") {
        QWidget* child = m_program->Window().findChild<QWidget*>(word(0))->parentWidget();
        QTest::mouseClick(child, Qt::LeftButton, {}, QPoint(child->width() / 2, 10));
    } else if (verb == u"resize") {
        Window()->resize(word(0).toInt(), word(1).toInt());
    } else if (verb == u"copy" || verb == u"write" || verb == u"picture" || verb == u"folder" ||
               verb == u"remove") {
        FilesStep(step);
    } else {
        throw NotDone{u"no such step"_s};
    }
}
