// Makes the window of a test, with its document.
#pragma once

#include "framework/document/DocumentContext.h"
#include "framework/window/Frame.h"
#include "framework/window/TestWindow.h"

#include <QStringView>

#include <memory>

/// Whether the program has the window of this test.
bool HasWindow(QStringView key);

/// A new window with a new document, or null for a test that the program does not have.
std::unique_ptr<TestWindow> CreateTestWindow(QStringView key, const DocumentContext& context, Frame& frame);
