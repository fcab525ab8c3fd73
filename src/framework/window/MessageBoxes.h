// Messages as message boxes.
#pragma once

#include "framework/document/Messages.h"

#include <QPointer>
#include <QWidget>

/// The text as a box shows it: a word that is too long for a line, as a path may be, breaks behind its
/// separators, and where it has none.
QString Breakable(QString text);

class MessageBoxes : public Messages
{
public:
    /// The boxes open over this window.
    void SetParent(QWidget* parent) { m_parent = parent; }

    void Show(MessageIcon icon, const QString& title, const QString& text) override;
    void Beep() override;
    Answer Ask(MessageIcon icon, const QString& title, const QString& text) override;

private:
    QPointer<QWidget> m_parent;
};
