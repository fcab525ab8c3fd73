// The window around one document: menus, toolbar, tab pages, status panels, and the way of every user's event
// to the document. It computes nothing.
#pragma once

#include "framework/DocumentLife.h"
#include "framework/window/Frame.h"
#include "framework/window/GridView.h"

#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QList>
#include <QMenu>
#include <QPlainTextEdit>
#include <QTabWidget>
#include <QToolBar>
#include <QWidget>

#include <functional>
#include <memory>

class TestWindow : public QWidget
{
    Q_OBJECT

public:
    TestWindow(std::unique_ptr<TestDocument> document, Frame& frame);

    TestDocument& Document() { return *m_document; }
    const QList<QMenu*>& Menus() const { return m_menus; }
    /// The window has become the active one.
    void Activated();

protected:
    /// The pieces that the pages of the tests are made of. Each keeps its place in the window's refresh.
    QWidget* HeaderFields();
    QWidget* ConclusionsFrame(const QString& frameName);
    QLineEdit* SizeEdit(QLatin1StringView control);
    QLabel* ResultLabel(const ResultField& field);
    GridView* Grid(DataGrid& grid, const QString& name, const QString& caption);
    /// A label whose text the document gives.
    QLabel* CaptionLabel(QLatin1StringView control);
    static QLabel* FixedLabel(const QString& name, const QString& text);
    static QGroupBox* FrameBox(const QString& name, const QString& title);

    void AddPage(QWidget* page, const QString& caption);
    /// Shows what the document holds, everywhere.
    virtual void Refresh();
    /// Runs a command of a menu or button, after what is being typed into a grid.
    void RunCommand(const std::function<void()>& command);
    /// Runs a user's event. A run-time failure ends here: its message, and then the program's end.
    void Run(const std::function<void()>& event);

    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    std::function<void()> HandlerOf(const QString& name);
    std::function<void()> HandlerOfMethod(int index);
    void BuildStatusPanels();
    void SetTools(bool enabled);
    void RefreshInputs();
    bool CommitGrids();
    void LeaveSizeEdit(QLineEdit* edit);
    void CaptionToToolTip();
    void Describe(const QString& text);
    QString ReadNotice() const;

    void FileNuovo();
    void FileApri();
    void FileSalva();
    void FileSalvaNome();
    void FileChiudi();
    void StrumentiCalcola();
    void ToolbarSum();

    std::unique_ptr<TestDocument> m_document;
    Frame& m_frame;
    QList<QMenu*> m_menus;
    QToolBar* m_toolbar = nullptr;
    QTabWidget* m_tabs = nullptr;
    QLabel* m_descrBar = nullptr;
    QLabel* m_statusBar = nullptr;
    QList<QLineEdit*> m_inputs;
    QList<QLineEdit*> m_sizes;
    QList<GridView*> m_grids;
    QList<QLabel*> m_labels; ///< result fields, and captions that change
    QPlainTextEdit* m_conclusions = nullptr;
};
