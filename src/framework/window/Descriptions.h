// What the panel DescrBar says of the thing under the mouse.
#pragma once

#include <QHash>
#include <QObject>
#include <QString>
#include <QWidget>

/// Widgets inside a described one are described by it, unless they have a description of their own.
class Descriptions : public QObject
{
    Q_OBJECT

public:
    explicit Descriptions(QObject* parent = nullptr) : QObject(parent) {}

    /// An empty text empties the panel.
    void Describe(QWidget* widget, const QString& text);
    /// Watches the mouse over all described widgets. Called once they have their children.
    void Watch();

Q_SIGNALS:
    void Hovered(const QString& text);

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    QHash<QWidget*, QString> m_texts;
};
