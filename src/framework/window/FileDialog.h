// The shared file dialog as a window.
#pragma once

#include "framework/document/CommonDialog.h"

#include <QPointer>
#include <QWidget>

struct Define;

class FileDialog : public CommonDialog
{
public:
    /// define outlives the dialog, and has the title of its boxes.
    explicit FileDialog(const Define& define) : m_define(define) {}

    /// The dialogs open over this window.
    void SetParent(QWidget* parent) { m_parent = parent; }

    bool ShowOpen() override;
    bool ShowSave() override;
    QString BrowseFolder(const QString& title, const QString& folder) override;

private:
    bool MayReplace(QWidget* parent, const QString& name) const;

    const Define& m_define;
    QPointer<QWidget> m_parent;
};
