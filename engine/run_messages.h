#pragma once
// The message boxes a run shows while it reads its sources: warnings, and questions whose
// default button is Yes.
#include <string_view>

#include "support/host.h"

namespace wordtally {

// The refusals of a run are warnings.
inline void Warn(Host& host, std::string_view title, std::string_view text) {
  Tell(host, title, text, MessageIcon::Exclamation);
}

inline Answer Ask(Host& host, std::string_view title, std::string_view text,
                  MessageButtons buttons) {
  return host.ShowMessage(
      {AnsiString(title), AnsiString(text), MessageIcon::None, buttons, Answer::Yes});
}

}  // namespace wordtally
