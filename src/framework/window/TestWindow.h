// The window around one document: menus, toolbar, tab pages, status panels, and the way of every user's event
// to the document. It computes nothing.
#pragma once

#include "framework/document/DocumentLife.h"
#include "framework/window/Descriptions.h"
#include "framework/window/Frame.h"
#include "framework/window/GridView.h"
#include "framework/window/StatusPanels.h"
#include "framework/window/WindowFields.h"

#include <QList>
#include <QMenu>
#include <QTabWidget>
#include <QToolBar>
#include <QWidget>

#include <functional>
#include <memory>

/// A field that sizes the grid, with what stands beside it.
struct CountField {
    QLatin1StringView control;
    QString captionName;
    QString caption;
    QString minimumName;
    QString minimum;
};

class TestWindow : public QWidget
{
    Q_OBJECT

public:
    TestWindow(std::unique_ptr<TestDocument> document, Frame& frame);

    TestDocument& Document() { return *m_document; }
    const QList<QMenu*>& Menus() const { return m_menus; }
    /// The window has become the active one.
    virtual void Activated();

    /// Whether closing asks about this document.
    bool HasChanges() const { return m_document->IsModify() || m_document->ChangeMade(); }
    /// Asks what becomes of the changes. False when the window has to stay.
    bool QueryUnload();
    /// Closes without a further question.
    void Unload();

    QSize sizeHint() const override;

protected:
    WindowFields& Fields() { return *m_fields; }
    /// A view of a grid, with the popup of the menu Modifica and the description of grids.
    GridView* Grid(DataGrid& grid, const QString& name, const QString& caption);

    // The pages and what stands on them.
    void AddPage(QWidget* page, const QString& caption);
    /// A page for each chart of the document.
    void AddChartPages();
    /// Header fields and conclusions.
    QWidget* InfoPage(const QString& labelName, const QString& conclusionsFrame);
    /// Frames one below the other, on the left and on the right; the last on the left takes the room that is
    /// left.
    static QWidget* TwoSides(const QList<QWidget*>& left, const QList<QWidget*>& right);
    /// A frame with a field that sizes the grid, in the first row of a grid layout of three columns.
    QGroupBox* CountFrame(const QString& name, const QString& title, const CountField& field);
    /// A frame with the document's grid.
    QGroupBox* GridFrame(const QString& name, const QString& title);
    /// The frame of the results, still without them.
    QGroupBox* ResultBox(const QString& name);
    /// The pages stand: shows the document, and the first of them.
    void Finish();
    /// Shows what the document holds, everywhere.
    virtual void Refresh();
    /// Runs a command of a menu or button, after what is being typed into a grid.
    void RunCommand(const std::function<void()>& command);
    /// Runs a user's event. A run-time failure ends here: its message, and then the program's end.
    void Run(const std::function<void()>& event);

    void closeEvent(QCloseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    std::function<void()> HandlerOf(const QString& name);
    std::function<void()> HandlerOfMethod(int index);
    QMenu* Menu(QLatin1StringView name) const;
    void SetTools(bool enabled);
    bool CommitGrids();
    void CaptionToToolTip();
    void Describe(const QString& text);
    QString ReadNotice() const;

    void FileNuovo();
    void FileApri();
    void FileSalva();
    void FileSalvaNome();
    void FileChiudi();
    void StrumentiCalcola();
    void StrumentiSetup();
    void ToolbarSum();

    std::unique_ptr<TestDocument> m_document;
    Frame& m_frame;
    WindowFields* m_fields;
    Descriptions* m_descriptions;
    QList<QMenu*> m_menus;
    QToolBar* m_toolbar;
    QTabWidget* m_tabs;
    StatusPanels* m_panels;
    QList<GridView*> m_grids;
    bool m_unloading = false; ///< the question was asked
};
