// The frame: a window of many documents, empty until a test is chosen.
#pragma once

#include "framework/document/DocumentContext.h"
#include "framework/window/Frame.h"
#include "framework/window/TestWindow.h"
#include "shell/FrameArea.h"

#include <QMainWindow>
#include <QMdiSubWindow>

#include <functional>

class WindowList;

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

    /// Shows the document in the window of its test, as the command Apri there does. What can't be opened is
    /// told.
    void OpenFile(const QString& fileName);

    /// The open window of this test, or null.
    TestWindow* OpenTest(QStringView key) const;

protected:
    bool eventFilter(QObject* object, QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    using Command = std::function<void(MainWindow&)>;
    struct Item;
    static const QList<Item>& ItemTable();
    /// The menu of this name, made when it is first asked for.
    QMenu* OwnMenu(const QString& name);
    void MakeMenus();
    void ShowMenus();
    /// The windows of the tests, in the order in which they were opened.
    QList<TestWindow*> Tests() const;

    /// The test whose window is in front, or null.
    TestWindow* FrontTest() const;
    /// What is being typed there is taken over. False when it is refused: the window stays in front.
    bool MayLeaveFront();
    bool BringToFront(QWidget* clicked);
    void TurnWindow(bool forward);
    /// Why the program can't open this file, or nothing.
    QString WhyNotOpened(const QString& fileName) const;
    void AskForDocument();

    void ShowCompanyData();
    void ShowOptions();
    void RunBackup(bool silent);

    DocumentContext m_context;
    FrameArea* m_area;
    WindowList* m_windowList;
    QAction* m_open;       ///< for any document, while no test is open
    QList<QMenu*> m_menus; ///< the frame's own, seen while no test is open
};
