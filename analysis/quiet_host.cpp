#include "analysis/quiet_host.h"

namespace wordtally {

Answer QuietHost::ShowMessage(const MessageBoxRequest& request) {
  if (request.icon == MessageIcon::Exclamation) {
    warnings_.push_back(request.title + ": " + request.text);
  }
  return request.defaultButton;
}

}  // namespace wordtally
