#include "shell/CompanyData.h"

#include "framework/text/TextFunctions.h"
#include "stats/RuntimeFailure.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

QString GetLogoPath(const QString& dbFile)
{
    return ReadCompany(dbFile).logoPath;
}

QString LogoPathAtStart(const Define& define, Messages& messages)
{
    try {
        return GetLogoPath(define.DbFile);
    } catch (const RuntimeFailure& failure) {
        messages.Show(MessageIcon::Exclamation, define.AppTitle, CompanyReadFailureText(define, failure));
        return {};
    }
}

QString CompanyCaption(std::size_t field)
{
    static const std::array<QString, Company::kTexts> kCaptions = {
        u"Ragione Sociale"_s, u"Titolare"_s, u"Responsabile chimico"_s, u"Via"_s,     u"Città"_s, u"CAP"_s,
        u"Telefono"_s,        u"FAX"_s,      u"Indirizzo E-Mail"_s,     u"Sito WEB"_s};
    return kCaptions[field];
}

QString CompanyReadFailureText(const Define& define, const RuntimeFailure& failure)
{
    return u"I dati dell'azienda non sono disponibili nel database\n%1\n\n%2."_s.arg(define.DbFile,
                                                                                     FailureText(failure));
}

QString CompanySaveFailureText(const Define& define, const RuntimeFailure& failure)
{
    const QString text = FailureText(failure);
    if (failure.Kind() != FailureKind::FieldTooSmall)
        return u"I dati non sono stati salvati nel database\n%1\n\n%2."_s.arg(define.DbFile, text);
    const auto field = std::ranges::find(Company::kFields, text);
    const QString caption = field == Company::kFields.end()
                                ? u"Logo"_s
                                : CompanyCaption(static_cast<std::size_t>(field - Company::kFields.begin()));
    return u"I dati non sono stati salvati: il testo di \"%1\" è più lungo del suo campo nel database."_s.arg(
        caption);
}
