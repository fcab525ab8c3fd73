#include "shell/CompanyDataDialog.h"

#include "framework/document/CommonDialog.h"
#include "framework/document/Define.h"
#include "framework/document/DocumentContext.h"
#include "framework/document/Messages.h"
#include "framework/text/NumberText.h"
#include "framework/text/Twips.h"
#include "framework/window/Forms.h"
#include "shell/CompanyData.h"
#include "stats/RuntimeFailure.h"

#include <QFormLayout>
#include <QGridLayout>
#include <QImage>
#include <QLabel>
#include <QRadioButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

CompanyDataDialog::CompanyDataDialog(const Company& company, const DocumentContext& context, QWidget* parent)
    : QDialog(parent), m_context(context), m_logoPath(company.logoPath), m_noLogo(company.noLogo)
{
    setObjectName(u"frmAnagraf"_s);
    setWindowTitle(u"Anagrafica azienda"_s);
    auto* form = new QFormLayout;
    for (std::size_t i = 0; i < m_fields.size(); ++i) {
        auto* field = new QLineEdit(company.texts[i]);
        field->setObjectName(u"txtFields%1"_s.arg(i));
        field->setMaxLength(Company::kLongestText);
        field->setMinimumWidth(field->fontMetrics().averageCharWidth() * 50);
        form->addRow(CompanyCaption(i), field);
        m_fields[i] = field;
    }
    auto* save = ButtonWithoutEnter(u"cmdSave"_s, u"&Salva modifiche"_s);
    auto* close = ButtonWithoutEnter(u"cmdClose"_s, u"&Chiudi"_s);
    connect(save, &QPushButton::clicked, this, &CompanyDataDialog::Save);
    connect(close, &QPushButton::clicked, this, &QDialog::close);
    auto* body = new QWidget;
    auto* layout = new QVBoxLayout(body);
    layout->addLayout(form);
    layout->addWidget(LogoFrame());
    if (!m_noLogo)
        LoadLogo();
    m_cancelLogo->setEnabled(!m_noLogo && !m_logoPath.isEmpty()); // also one whose file is gone
    BuildForm(this, body, ButtonRow({save, close}));
}

QGroupBox* CompanyDataDialog::LogoFrame()
{
    auto* box = new QGroupBox(u"Logo"_s);
    m_logo = new LogoView;
    m_logo->SetLimits(m_context.define.LogoMaxHeight, m_context.define.LogoMaxWidth);
    connect(m_logo, &LogoView::ShownSizeChanged, this, &CompanyDataDialog::ShowSize);

    auto* choose = ButtonWithoutEnter(u"ObjOpen"_s, u"&Scegli logo"_s);
    m_cancelLogo = ButtonWithoutEnter(u"ObjCancel"_s, u"Cancella logo"_s);
    connect(choose, &QPushButton::clicked, this, &CompanyDataDialog::ChooseLogo);
    connect(m_cancelLogo, &QPushButton::clicked, this, &CompanyDataDialog::CancelLogo);

    auto* whole = new QRadioButton(u"Intera immagine"_s);
    whole->setObjectName(u"optDim0"_s);
    auto* real = new QRadioButton(u"Dimensioni reali"_s);
    real->setObjectName(u"optDim1"_s);
    whole->setChecked(true);
    connect(whole, &QRadioButton::toggled, m_logo, &LogoView::SetStretch);

    const auto sizeField = [](const QString& name) {
        auto* field = new QLineEdit;
        field->setObjectName(name);
        field->setReadOnly(true);
        field->setAlignment(Qt::AlignRight);
        field->setMaximumWidth(field->fontMetrics().horizontalAdvance(u"00000000"_s));
        return field;
    };
    m_width = sizeField(u"txtX"_s);
    m_height = sizeField(u"txtY"_s);
    auto* sizes = new QFormLayout;
    sizes->addRow(u"Larghezza (cm)"_s, m_width);
    sizes->addRow(u"Altezza (cm)"_s, m_height);

    auto* side = new QVBoxLayout;
    for (QWidget* widget : std::initializer_list<QWidget*>{choose, m_cancelLogo, whole, real})
        side->addWidget(widget);
    side->addLayout(sizes);
    side->addStretch(1);
    auto* note = new QLabel(u"Dimensioni reali del logo per il report, massime 10.00 x 5.00 cm"_s);
    note->setWordWrap(true);
    auto* layout = new QGridLayout(box);
    layout->addWidget(m_logo, 0, 0, Qt::AlignTop | Qt::AlignLeft);
    layout->addLayout(side, 0, 1);
    layout->addWidget(note, 1, 0, 1, 2);
    return box;
}

void CompanyDataDialog::LoadLogo()
{
    // A file that is gone or no picture leaves the place empty, without a word.
    if (!m_logoPath.isEmpty())
        m_logo->ShowPicture(QImage(m_logoPath));
}

void CompanyDataDialog::ChooseLogo()
{
    // The dialog is the one that holds the name of the documents: it gets that back.
    CommonDialog& dialog = m_context.dialog;
    const KeepDialog keep(dialog);
    dialog.InitDir = m_context.define.OpenSaveFolder;
    dialog.DefaultExt = u"BMP"_s;
    dialog.Filter = u"Immagini BMP, GIF, PCX, WMF, JPEG|*.BMP;*.GIF;*.PCX;*.WMF;*.JPG;*.JPEG"_s;
    dialog.FileName.clear();
    if (!dialog.ShowOpen())
        return;
    const QImage picture(dialog.FileName);
    if (picture.isNull())
        return;
    m_logo->ShowPicture(picture);
    m_noLogo = false;
    m_logoPath = dialog.FileName;
    m_cancelLogo->setEnabled(true);
}

void CompanyDataDialog::CancelLogo()
{
    m_logo->Clear();
    m_noLogo = true;
    // Deliberate: the path stays, and with it the logo of the reports.
    m_cancelLogo->setEnabled(false);
}

void CompanyDataDialog::ShowSize()
{
    const auto show = [this](QLineEdit* field, int twips) {
        field->setText(m_logo->HasPicture()
                           ? DecimalText(twips / kTwipsInCentimetre, 2, m_context.define.DecSep)
                           : QString());
    };
    show(m_width, m_logo->ShownSize().width());
    show(m_height, m_logo->ShownSize().height());
}

void CompanyDataDialog::Save()
{
    Define& define = m_context.define;
    define.LogoFile = m_logoPath;
    Company company{.texts = {}, .logoPath = m_logoPath, .noLogo = m_noLogo};
    for (std::size_t i = 0; i < m_fields.size(); ++i)
        company.texts[i] = m_fields[i]->text();
    try {
        WriteCompany(define.DbFile, company);
    } catch (const RuntimeFailure& failure) {
        m_context.messages.Show(MessageIcon::Critical, define.AppTitle,
                                CompanySaveFailureText(define, failure));
        return;
    }
    m_context.messages.Show(MessageIcon::Information, define.AppTitle, u"I dati sono stati salvati"_s);
}
