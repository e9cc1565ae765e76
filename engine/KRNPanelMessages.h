#pragma once

/// \file
/// Every message a panel shows (a refused entry, a bound that was crossed)
/// goes through one routine. By default it is a message box; a host can take
/// the messages instead, to log them or to drive panels with no one watching.

#include "KRNExport.h"

#include <functional>
#include <string>

/// Takes one message: the caption of the panel's message box and its text (UTF-8).
using KRNMessageHandler = std::function<void(const std::string& caption, const std::string& text)>;

/// Replaces the process-wide handler and returns the previous one. An empty
/// handler restores the default message box.
KRN_API KRNMessageHandler KRNSetMessageHandler(KRNMessageHandler handler);
