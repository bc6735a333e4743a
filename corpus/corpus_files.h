#pragma once
// The files of a corpus: folders expanded, count files told apart from text.
#include <string>
#include <vector>

namespace wordtally {

struct CorpusInput {
  std::string path;
  bool isCountFile = false;
};

// Expands inputs in the order given: a file stands for itself (a count file is recognised by its
// first line), a folder for every file below it with a text, markup, docx or "counts" extension,
// in sorted path order, hidden files and folders skipped. A path that does not exist is kept as a file,
// so that the run reports it by name.
std::vector<CorpusInput> ExpandCorpusInputs(const std::vector<std::string>& inputs);

// The paths of ExpandCorpusInputs without opening any file to tell count files apart.
std::vector<std::string> CorpusFilePaths(const std::vector<std::string>& inputs);

// True when inputs ask for a corpus run: more than one input, a folder, or a count file. A single
// file alone is the classic one-file run.
bool IsCorpusRun(const std::vector<std::string>& inputs);

// The path of file relative to the deepest folder that holds every one of files.
std::vector<std::string> PathsBelowCommonFolder(const std::vector<std::string>& files);

}  // namespace wordtally
