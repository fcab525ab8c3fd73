// The world around a document.
#pragma once

struct Define;
class CommonDialog;
class FTable;
class Messages;

/// What a document needs of the program around it. All of it outlives the document.
struct DocumentContext {
    Define& define;
    CommonDialog& dialog;
    Messages& messages;
    FTable& fTable;
};
