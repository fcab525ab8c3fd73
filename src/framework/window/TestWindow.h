// The window around one document: menus, toolbar, tab pages, status panels, and the way of every user's event
// to the document. It computes nothing.
#pragma once

#include "framework/document/TestDocument.h"
#include "framework/window/Descriptions.h"
#include "framework/window/Frame.h"
#include "framework/window/GridNotices.h"
#include "framework/window/NoticeBar.h"
#include "framework/window/StatusPanels.h"
#include "framework/window/WindowCommands.h"
#include "framework/window/WindowFields.h"
#include "framework/window/WindowPages.h"

#include <QHash>
#include <QList>
#include <QMenu>
#include <QPointer>
#include <QWidget>

#include <memory>
#include <utility>

/// Who owns what: the window its document and its pages, the pages their frames and views, the document its
/// grids. The pages go before the document does. Made by MakeWindow alone.
class TestWindow : public QWidget
{
    Q_OBJECT

public:
    ~TestWindow() override;

    TestDocument& Document() { return *m_document; }
    const QList<QMenu*>& Menus() const { return m_commands->Menus(); }
    /// The window has become the active one.
    virtual void Activated();
    /// Another window has become the active one.
    void Deactivated();

    /// Opens a file of this test, with the questions of its command Apri.
    void OpenFile(const QString& fileName) { m_commands->OpenFile(fileName); }

    /// Whether closing asks about this document.
    bool HasChanges() const { return m_document->IsModify() || m_document->ChangeMade(); }
    /// The window takes another state, maximized or not: the focus stays where it is, or where it was last.
    void KeepFocus();
    /// Takes over what is being typed. False when it is refused.
    [[nodiscard]] bool Settle() { return m_commands->Settle(); }
    /// Asks what becomes of the changes. False when the window has to stay.
    bool QueryUnload();
    /// Closes without a further question.
    void Unload();

    /// The pages and the commands stand: makes the menus, and shows the document and the first page.
    void Finish();

    QSize sizeHint() const override;

protected:
    /// What derives from this adds its pages, and the commands that it has beside the common ones.
    TestWindow(std::unique_ptr<TestDocument> document, Frame& frame);

    WindowFields& Fields() { return *m_fields; }
    WindowPages& Pages() { return *m_pages; }
    WindowCommands& Commands() { return *m_commands; }

    void closeEvent(QCloseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    /// Shows what the document holds, everywhere.
    void Refresh();
    void CaptionToToolTip();
    void MakeKeys();
    /// The panels that tell of the document's state, and what the notices offer.
    void ShowState();
    void ShowOnce(NoticeCause cause, const QString& text);
    void NoteFocus(QWidget* now);
    void FocusLast();

    std::unique_ptr<TestDocument> m_document;
    WindowCommands* m_commands;
    WindowFields* m_fields;
    Descriptions* m_descriptions;
    NoticeBar* m_notices;
    GridNotices* m_gridNotices;
    std::unique_ptr<WindowPages> m_pages;
    StatusPanels* m_panels;
    QHash<NoticeCause, QString> m_told;
    QPointer<QWidget> m_lastFocus; ///< had it when the window was in front
    QPointer<QWidget> m_lastView;  ///< the grid that it stood in; its editor may be gone
    bool m_keepsFocus = false;
    bool m_unloading = false; ///< the question was asked
};

/// A window with its document, complete.
template<typename Window>
std::unique_ptr<Window> MakeWindow(std::unique_ptr<TestDocument> document, Frame& frame)
{
    auto window = std::make_unique<Window>(std::move(document), frame);
    window->Finish();
    return window;
}
