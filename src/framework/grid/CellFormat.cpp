#include "framework/grid/CellFormat.h"

#include "framework/text/TextNumber.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace
{

double LargestOf(const Digits& digits)
{
    // Beyond 15 digits the nines are those of the rounded power.
    const double power = std::pow(10.0, std::min(digits.interi, 300));
    return power - std::pow(10.0, -std::min(digits.decimali, 300));
}

} // namespace

CellFormat::CellFormat(QString decSep) : m_decSep(std::move(decSep)) {}

void CellFormat::SetDigits(Digits digits)
{
    m_digits = digits;
    m_largest = LargestOf(digits);
}

QString CellFormat::Text(std::optional<double> value) const
{
    return value ? DecimalText(*value, m_digits.decimali, m_decSep) : QString();
}

QString CellFormat::ShownText(std::optional<double> value) const
{
    QString text = Text(value);
    if (!m_grouped)
        return text;
    const qsizetype point = text.indexOf(m_decSep);
    const qsizetype first = text.startsWith(u'-') ? 1 : 0;
    for (qsizetype at = (point < 0 ? text.size() : point) - 3; at > first; at -= 3)
        text.insert(at, m_decSep == u"," ? u'.' : u',');
    return text;
}

bool CellFormat::Accepts(const QString& text) const
{
    return text.trimmed().isEmpty() || Number(text).has_value();
}

std::optional<double> CellFormat::Number(const QString& text) const
{
    const auto value = TypedNumber(text);
    return value && *value >= 0 && *value <= m_largest ? value : std::nullopt;
}

QString CellFormat::LargestText() const
{
    const QString whole(m_digits.interi, u'9');
    return m_digits.decimali == 0 ? whole : whole + m_decSep + QString(m_digits.decimali, u'9');
}
