// The frame: a window of many documents, empty until a test is chosen.
#pragma once

#include "framework/document/TestDocument.h"
#include "framework/window/Frame.h"
#include "framework/window/TestWindow.h"

#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>

class MainWindow : public QMainWindow, public Frame
{
    Q_OBJECT

public:
    explicit MainWindow(const DocumentContext& context);
    ~MainWindow() override;

    bool HasTest(QStringView key) const override;
    void ShowTest(QStringView key) override;
    bool FormIsOpen(QAnyStringView windowClass) const override;
    void Arrange(Arrangement arrangement) override;
    void EndProgram() override { close(); }

    /// The open window of this test, or null.
    TestWindow* OpenTest(QStringView key) const;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    QMenu* FileMenu();
    QMenu* MethodsMenu();
    QMenu* WindowsMenu();
    QMenu* HelpMenu();
    void ShowMenus();
    void ListWindows(QMenu* menu);
    void Activate(QMdiSubWindow* window);
    /// The windows of the tests, in the order in which they were opened.
    QList<TestWindow*> Tests() const;
    void CascadeWindows();
    void TileWindows(Qt::Orientation along);
    void ArrangeIcons();
    QList<QMdiSubWindow*> Windows(bool minimized,
                                  QMdiArea::WindowOrder order = QMdiArea::CreationOrder) const;

    void ShowCompanyData();
    void ShowOptions();
    void RunBackup(bool silent);

    DocumentContext m_context;
    QMdiArea* m_area;
    QList<QMenu*> m_menus; ///< the frame's own, seen while no test is open
};
