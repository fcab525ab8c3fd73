// Messages as message boxes.
#pragma once

#include "framework/document/Messages.h"

#include <QPointer>
#include <QWidget>

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
