#include "tests/common/scripted_host.h"

namespace wordtally::testing {

Answer ScriptedHost::ShowMessage(const MessageBoxRequest& request) {
  messages.push_back(request);
  if (request.buttons == MessageButtons::Ok) return Answer::Ok;
  if (answers.empty()) return request.defaultButton;
  const Answer answer = answers.front();
  answers.pop_front();
  return answer;
}

std::optional<AnsiString> ScriptedHost::InputBox(const AnsiString& title, const AnsiString&,
                                                 const AnsiString& text) {
  inputBoxes.emplace_back(title, text);
  if (inputAnswers.empty()) return text;
  auto answer = inputAnswers.front();
  inputAnswers.pop_front();
  return answer;
}

std::optional<AnsiString> ScriptedHost::ChooseOutputFile() {
  if (chosenFiles.empty()) return std::nullopt;
  auto chosen = chosenFiles.front();
  chosenFiles.pop_front();
  return chosen;
}

void ScriptedHost::SetOutputText(const AnsiString& text) {
  output = text;
  ++setOutputCount;
}

void ScriptedHost::AppendOutput(std::string_view text) { output.append(text); }

void ScriptedHost::SetCaption(Control control, const AnsiString& caption) {
  captionHistory[control].push_back(caption);
}

void ScriptedHost::ProcessEvents() {
  ++processEventsCount;
  if (onProcessEvents) onProcessEvents();
}

AnsiString ScriptedHost::Caption(Control control) const {
  auto it = captionHistory.find(control);
  return it == captionHistory.end() || it->second.empty() ? AnsiString() : it->second.back();
}

bool ScriptedHost::Visible(Control control) const {
  auto it = visible_.find(control);
  return it != visible_.end() && it->second;
}

}  // namespace wordtally::testing
