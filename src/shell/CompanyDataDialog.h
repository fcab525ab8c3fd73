// The laboratory's company data, as reports are headed with them.
#pragma once

#include "framework/document/DocumentContext.h"
#include "framework/files/Database.h"
#include "shell/LogoView.h"

#include <QButtonGroup>
#include <QDialog>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>

#include <array>

class CompanyDataDialog : public QDialog
{
    Q_OBJECT

public:
    /// company: the record as it stands in the database.
    CompanyDataDialog(const Company& company, const DocumentContext& context, QWidget* parent = nullptr);

private:
    QGroupBox* LogoFrame();
    void LoadLogo();
    void ChooseLogo();
    void CancelLogo();
    void ShowSize();
    void Save();

    DocumentContext m_context;
    std::array<QLineEdit*, Company::kTexts> m_fields{};
    LogoView* m_logo = nullptr;
    QPushButton* m_cancelLogo = nullptr;
    QLineEdit* m_width = nullptr;
    QLineEdit* m_height = nullptr;
    QString m_logoPath;
    bool m_noLogo;
};
