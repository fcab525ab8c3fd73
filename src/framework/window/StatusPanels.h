// The status bar of a test window: a description, the number format, a panel for each other test, and whether
// the document is saved and its results are current.
#pragma once

#include "framework/document/TestRegistry.h"
#include "framework/window/Frame.h"
#include "framework/window/Furnishings.h"

#include <QLabel>
#include <QList>
#include <QStatusBar>

inline const QString kModified = QStringLiteral("Modificato");

/// A text with a bevel. A raised one stands for a test that is not open.
class StatusPanel : public QLabel
{
    Q_OBJECT

public:
    StatusPanel(const QString& key, const QString& text);

    bool IsInset() const { return frameShadow() == Sunken; }
    void SetInset(bool inset) { setFrameShadow(inset ? Sunken : Raised); }
    /// The text, and all of it in the tool tip.
    void ShowText(const QString& text);

Q_SIGNALS:
    void Clicked();
    void DoubleClicked();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
};

class StatusPanels : public QStatusBar
{
    Q_OBJECT

public:
    StatusPanels(const TestInfo& info, Frame& frame, QWidget* parent = nullptr);

    void SetDescription(const QString& text) { m_descrBar->ShowText(text); }
    void SetStatus(const QString& text) { m_statusBar->ShowText(text); }
    void SetModified(bool modified) { ShowState(m_modified, modified ? kModified : QString()); }
    void SetStale(bool stale) { ShowState(m_stale, stale ? kStaleResults : QString()); }
    /// Each panel's bevel becomes that of its test: inset where the window is open.
    void UpdateStatusPanels();

Q_SIGNALS:
    void StatusDoubleClicked();

private:
    static void ShowState(StatusPanel* panel, const QString& text);
    StatusPanel* StatePanel(const QString& name, const QString& longest);
    void BuildStatusPanels(const TestInfo& info);
    void RunPanel(const QString& key);

    Frame& m_frame;
    StatusPanel* m_descrBar;
    StatusPanel* m_statusBar;
    QList<StatusPanel*> m_tests;
    StatusPanel* m_modified;
    StatusPanel* m_stale;
};
