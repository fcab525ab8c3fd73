#include "framework/window/NumberFormatDialog.h"

#include "framework/document/Define.h"
#include "framework/document/Messages.h"
#include "framework/text/NumberText.h"
#include "framework/window/Forms.h"

#include <QFormLayout>
#include <QLabel>
#include <QVBoxLayout>

#include <cstdint>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{
constexpr int kMostDigits = 13;
} // namespace

NumberFormatDialog::NumberFormatDialog(const DataGrid& grid, const DocumentContext& context, Guard guard,
                                       QWidget* parent)
    : QDialog(parent), oGrid(grid), m_context(context), m_guard(std::move(guard))
{
    setObjectName(u"FormNumero"_s);
    setWindowTitle(u"Formato numeri"_s);
    const std::array captions = {u"Numero degli interi"_s, u"Numero dei decimali"_s};
    const std::array counts = {oGrid.GetDigits().interi, oGrid.GetDigits().decimali};
    auto* form = new QFormLayout;
    for (std::size_t i = 0; i < m_numForm.size(); ++i) {
        auto* field = new QLineEdit(QString::number(counts[i]));
        field->setObjectName(u"NumForm%1"_s.arg(i));
        field->setValidator(UpToFourDigits(field));
        field->setMaximumWidth(field->fontMetrics().horizontalAdvance(u"00000000"_s));
        form->addRow(captions[i], field);
        m_numForm[i] = field;
    }
    m_numForm[0]->selectAll();

    QPushButton* ok = NewButton(u"Command10"_s, u"&OK"_s);
    ok->setDefault(true);
    QPushButton* cancel = NewButton(u"Command11"_s, u"&Annulla"_s);
    connect(ok, &QPushButton::clicked, this, [this] { m_guard([this] { Store(); }); });
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    auto* body = new QWidget;
    auto* layout = new QVBoxLayout(body);
    layout->addWidget(new QLabel(u"Imposta il numero degli interi e dei decimali"_s));
    layout->addLayout(form);
    BuildForm(this, body, ButtonRow({ok, cancel}));
}

void NumberFormatDialog::Refuse(const QString& text)
{
    m_context.messages.Show(MessageIcon::Exclamation, m_context.define.AppTitle, text);
}

void NumberFormatDialog::Store()
{
    // An empty field counts as 0.
    const int interi = m_numForm[0]->text().toInt();
    const int decimali = m_numForm[1]->text().toInt();
    if (interi + decimali > kMostDigits) {
        Refuse(u"La somma di interi e decimali non puo' eccedere 13"_s);
        return;
    }
    if (interi <= 0) {
        Refuse(u"Il valore degli interi deve essere > 0"_s);
        return;
    }
    NumInteger = static_cast<std::int16_t>(interi);
    NumDecimal = static_cast<std::int16_t>(decimali);
    NumberFormat = NumFormatOf({interi, decimali}).replace(u'.', m_context.define.DecSep);
    accept();
}
