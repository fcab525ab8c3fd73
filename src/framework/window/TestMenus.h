// The menus and the toolbar of a test window: one table for all seven tests.
#pragma once

#include "framework/document/TestRegistry.h"

#include <QAction>
#include <QList>
#include <QMenu>
#include <QToolBar>

#include <functional>

/// What a menu item or button of this name does, or nothing where the program has no such thing yet.
using HandlerOf = std::function<std::function<void()>(const QString& name)>;

/// Connects the action of this name to its handler, or disables it for good where there is none.
/// An action without a handler carries the property kNoHandler.
void ConnectAction(QAction* action, QObject* receiver, const HandlerOf& handlerOf);
inline constexpr const char* kNoHandler = "noHandler";

/// The menus of a test window, in the order of its menu bar, with the objectNames of the items.
/// Their items belong to parent.
QList<QMenu*> BuildMenus(QWidget* parent, const TestInfo& info, const HandlerOf& handlerOf);

/// Fills the toolbar of a test window.
void BuildToolbar(QToolBar* toolbar, const TestInfo& info, const HandlerOf& handlerOf);

/// The buttons that follow the document's state: Save, Print, PrintGraph, Sum.
void SetToolbarState(QToolBar* toolbar, bool enabled);

/// The items that follow the document's state: saving, printing, calculating.
void SetMenuState(const QList<QMenu*>& menus, bool enabled);

/// The keys of the other six tests, in the order in which the test's menu MnuMetodi shows them.
QList<QString> OtherTests(const TestInfo& info);
