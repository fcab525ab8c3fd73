// How the shown results of a document stand to what it holds.
#pragma once

/// None yet, those of what stands in the document, or those of what stood there before a change.
enum class ResultState { None, Current, Stale };
