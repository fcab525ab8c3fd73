// Makes the document of a test.
#pragma once

#include "framework/document/DocumentContext.h"
#include "framework/document/TestDocument.h"

#include <memory>

/// A new document of this key, or null for a test that the program does not have.
std::unique_ptr<TestDocument> CreateDocument(QAnyStringView key, const DocumentContext& context);
