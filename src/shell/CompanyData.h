// The laboratory's company data: one record of the database, and the logo's path in it.
#pragma once

#include "framework/document/Define.h"
#include "framework/document/Messages.h"
#include "framework/files/Database.h"
#include "stats/RuntimeFailure.h"

/// The path of the logo in the database, empty when there is none. Fails as ReadCompany does.
QString GetLogoPath(const QString& dbFile);

/// The same at the program's start: a database that can't be read is told, and the program goes on without a
/// logo.
QString LogoPathAtStart(const Define& define, Messages& messages);

/// The caption of a text field of the record, by its place: "Ragione Sociale" for the first.
QString CompanyCaption(std::size_t field);

/// What is said when the record could not be read, or not be written.
QString CompanyReadFailureText(const Define& define, const RuntimeFailure& failure);
QString CompanySaveFailureText(const Define& define, const RuntimeFailure& failure);
