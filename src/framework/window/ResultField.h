// A result of a calculation: to be read, selected as a whole, and copied.
#pragma once

#include <QContextMenuEvent>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPoint>
#include <QSize>
#include <QString>

/// Never smaller than its text, nor than a usual number; one that wraps takes the width that there is, from a
/// usual sentence on. With the focus, which click, double click and Tab bring, all of it is selected; Ctrl+C
/// copies it.
class ResultField : public QLabel
{
    Q_OBJECT

public:
    /// control: objectName. caption: what a screen reader says beside the text.
    ResultField(const QString& control, const QString& caption);

    void ShowResult(const QString& text);
    void Copy() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// The context menu, at a place on the screen.
    void MenuWanted(const QPoint& at);

protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QSize Room() const;
    void SelectAll();
};
