#include "analysis/quiet_host.h"

#include "input/decoding.h"

namespace wordtally {

Answer QuietHost::ShowMessage(const MessageBoxRequest& request) {
  if (request.icon == MessageIcon::Exclamation) {
    warnings_.push_back(request.title + ": " + request.text);
  }
  if (request.title == kUtf8OrAnsiTitle) {
    return request.text == kSeemsUtf8Question ? Answer::Yes : Answer::No;
  }
  return request.defaultButton;
}

}  // namespace wordtally
