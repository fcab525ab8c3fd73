// A test window in a test: open on screen, with a scripted frame and a scripted world around it.
#pragma once

#include "TestPlace.h"
#include "framework/window/Frame.h"
#include "framework/window/GridView.h"
#include "framework/window/TestWindow.h"

#include <QAction>
#include <QApplication>
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
struct TestWindowPlace {
    explicit TestWindowPlace(const QString& decSep = QStringLiteral(","))
    {
        place.define.DecSep = decSep;
        window = MakeWindow<Window>(MakeDocument<Document>(place.Context()), frame);
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
    /// The only grid, or the first of several.
    GridView* GridWidget()
    {
        auto* only = window->template findChild<GridView*>(QStringLiteral("GridData"));
        return only != nullptr ? only : Find<GridView>("GridData0");
    }
    QTabWidget* Tabs() { return window->template findChild<QTabWidget*>(); }
    QStringList TabTexts()
    {
        QStringList texts;
        for (int i = 0; i < Tabs()->count(); ++i)
            texts += Tabs()->tabText(i);
        return texts;
    }
    void ShowData() { Tabs()->setCurrentIndex(1); }
    QString CellText(int row, int col = 0)
    {
        return GridWidget()->model()->index(row, col).data().toString();
    }
    void Type(int row, const QString& text, int col = 0)
    {
        GridWidget()->model()->setData(GridWidget()->model()->index(row, col), text);
    }
    void Trigger(const char* name)
    {
        auto* action = Find<QAction>(name);
        QVERIFY2(action->isEnabled(), name);
        action->trigger();
    }
    void TriggerWithFile(const char* name, const QString& file)
    {
        place.dialog.WillChoose(file);
        Trigger(name);
    }
    /// Whether a label stands in one line with a field, on its left.
    bool Beside(const char* label, const char* field)
    {
        const auto at = [this](const char* name) {
            auto* widget = Find<QWidget>(name);
            return QRect(widget->mapTo(window.get(), QPoint()), widget->size());
        };
        return std::abs(at(label).center().y() - at(field).center().y()) < 4 &&
               at(label).right() < at(field).right();
    }

    TestPlace place;
    ScriptedFrame frame;
    std::unique_ptr<Window> window;
};
