// A test window in a test: open on screen, with a scripted frame and a scripted world around it.
#pragma once

#include "TestWorld.h"
#include "framework/window/Frame.h"
#include "framework/window/GridView.h"
#include "framework/window/TestWindow.h"

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QRadioButton>
#include <QTabWidget>

#include <memory>

/// A frame that collects what is asked of it. The calibration is open, the other tests are closed.
class ScriptedFrame : public Frame
{
public:
    bool HasTest(QStringView) const override { return true; }
    void ShowTest(QStringView key) override { shown.append(key.toString()); }
    bool FormIsOpen(QAnyStringView windowClass) const override { return windowClass == "Tara"; }
    void Arrange(Arrangement arrangement) override { arranged.append(static_cast<int>(arrangement)); }
    void EndProgram() override { ++ended; }
    QStringList shown;
    QList<int> arranged;
    int ended = 0;
};

template<typename Window, typename Document>
struct WindowWorld {
    explicit WindowWorld(const QString& decSep = QStringLiteral(","))
    {
        world.define.DecSep = decSep;
        window = MakeWindow<Window>(MakeDocument<Document>(world.Context()), frame);
        window->setAttribute(Qt::WA_DeleteOnClose, false);
        window->resize(window->sizeHint());
        window->show();
        if (!QTest::qWaitForWindowActive(window.get()))
            QTest::qFail("the window is not shown", __FILE__, __LINE__);
    }

    template<typename Type>
    Type* Find(const char* name)
    {
        auto* found = window->template findChild<Type*>(QString::fromLatin1(name));
        if (found == nullptr)
            qFatal("no %s", name);
        return found;
    }
    QTabWidget* Tabs() { return window->template findChild<QTabWidget*>(); }
    void ShowData() { Tabs()->setCurrentIndex(1); }

    // The hands. What is not there ends the program: a helper can't end its test.

    /// A grid by its place: the only one, or one of several.
    GridView* GridAt(int index)
    {
        auto* only = window->template findChild<GridView*>(QStringLiteral("GridData"));
        return only != nullptr ? only : Find<GridView>(qPrintable(QStringLiteral("GridData%1").arg(index)));
    }
    /// Caret and focus go to a cell.
    void Go(int row, int col = 0, int grid = 0)
    {
        GridAt(grid)->setFocus();
        GridAt(grid)->setCurrentIndex(GridAt(grid)->model()->index(row, col));
    }
    /// The field in which a cell is being typed, or null.
    QLineEdit* Editor()
    {
        auto* focused = qobject_cast<QLineEdit*>(QApplication::focusWidget());
        return focused != nullptr &&
                       qobject_cast<GridView*>(focused->parentWidget()->parentWidget()) != nullptr
                   ? focused
                   : nullptr;
    }
    /// Types into the cell of the caret, a key first, and ends with the key given.
    void Keys(const QString& text, Qt::Key end)
    {
        QTest::keyClicks(QApplication::focusWidget(), text.first(1));
        if (Editor() == nullptr)
            qFatal("no cell is being typed");
        QTest::keyClicks(Editor(), text.sliced(1));
        QTest::keyClick(Editor(), end);
    }
    /// At its mark: beside an option's text there may be room that takes no click.
    void ClickOption(const char* name)
    {
        auto* option = Find<QRadioButton>(name);
        QTest::mouseClick(option, Qt::LeftButton, {}, QPoint(6, option->height() / 2));
    }

    void Type(int row, const QString& text, int col = 0)
    {
        GridAt(0)->model()->setData(GridAt(0)->model()->index(row, col), text);
    }
    void Trigger(const char* name)
    {
        auto* action = Find<QAction>(name);
        if (!action->isEnabled())
            qFatal("%s is grey", name);
        action->trigger();
    }
    void TriggerWithFile(const char* name, const QString& file)
    {
        world.dialog.WillChoose(file);
        Trigger(name);
    }
    TestWorld world;
    ScriptedFrame frame;
    std::unique_ptr<Window> window;
};
