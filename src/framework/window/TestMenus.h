// The menus and the toolbar of a test window: one table for all seven tests.
#pragma once

#include "framework/document/TestRegistry.h"

#include <QAction>
#include <QFlags>
#include <QList>
#include <QMenu>
#include <QToolBar>

#include <functional>

/// Why an item or a button is grey. It says so itself; where nothing speaks against it, it is enabled.
enum class Grey {
    NoCommand = 1, ///< the program has no such thing yet
    NoData = 2,    ///< there is nothing to save, to print or to calculate
    NoText = 4,    ///< the clipboard is empty
};
Q_DECLARE_FLAGS(Greys, Grey)
Q_DECLARE_OPERATORS_FOR_FLAGS(Greys)

Greys GreyReasons(const QAction* action);
void SetGrey(QAction* action, Grey reason, bool grey);

/// What the command of this name does, or nothing where there is none.
using FindCommand = std::function<std::function<void()>(const QString& name)>;

/// The menus of a test window, in the order of its menu bar, with the objectNames of the items. Their items
/// belong to parent.
QList<QMenu*> BuildMenus(QWidget* parent, const TestInfo& info, const FindCommand& find);

/// Fills the toolbar of a test window.
void BuildToolbar(QToolBar* toolbar, const TestInfo& info, const FindCommand& find);

/// Those that follow the document's data are grey without: saving, printing, calculating.
void SetDataState(const QList<QAction*>& actions, bool data);

/// The keys of the other six tests, in the order in which the test's menu MnuMetodi shows them.
QList<QString> OtherTests(const TestInfo& info);
