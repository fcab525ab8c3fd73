// The commands of a test window: what its menus and its toolbar do, and the guard around it.
#pragma once

#include "framework/window/Frame.h"
#include "framework/window/GridView.h"
#include "framework/window/Guard.h"
#include "framework/window/SizeFields.h"

#include <QList>
#include <QMenu>
#include <QObject>
#include <QString>
#include <QToolBar>

#include <functional>
#include <vector>

class TestDocument;

/// What the menu item or the button of this name does.
struct Command {
    QString name;
    std::function<void()> run;
    bool settles = true; ///< what is being typed is taken over first; where it is refused, nothing runs
};

class WindowCommands : public QObject
{
    Q_OBJECT

public:
    /// All outlive this object. It knows the commands that all tests have.
    WindowCommands(QWidget& window, TestDocument& document, Frame& frame);

    /// Another command. In the place of one with this name where there is one, for item and button.
    void Add(const Command& command);
    /// A grid of the window, with its popup.
    void AddGrid(GridView* view) { m_grids.append(view); }
    /// The size fields of the window.
    void SetSizes(SizeFields& sizes) { m_sizes = &sizes; }
    /// Menus and toolbar, once all commands and grids are known.
    void Build();

    const QList<QMenu*>& Menus() const { return m_menus; }
    QToolBar* Toolbar() const { return m_toolbar; }
    /// Whether there are data to save, to print and to calculate.
    void SetTools(bool data);

    /// As told at Guard.
    void Run(const std::function<void()>& event);
    Guard AsGuard()
    {
        return [this](const auto& event) { Run(event); };
    }
    /// Runs a command, after what is being typed.
    void RunCommand(const std::function<void()>& command);
    /// Takes over what is being typed. False when a field or a grid refuses it.
    [[nodiscard]] bool Settle();

    void FileChiudi();
    /// As FileApri does, but for the dialog.
    void OpenFile(const QString& fileName);
    void StrumentiSetup();

Q_SIGNALS:
    /// An event is over, whatever came of it.
    void Ran();

private:
    static QString ItemOf(const QString& button);
    std::function<void()> Find(const QString& name);
    void AddArrangements();
    void AddMethods();
    QMenu* Menu(QLatin1StringView name) const;
    void FileNuovo();
    void FileApri();
    void StrumentiCalcola();

    QWidget& m_window;
    TestDocument& m_document;
    Frame& m_frame;
    std::vector<Command> m_commands;
    QList<GridView*> m_grids;
    SizeFields* m_sizes = nullptr;
    QList<QMenu*> m_menus;
    QToolBar* m_toolbar;
};
