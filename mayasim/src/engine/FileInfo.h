#pragma once
// The scene's fileInfo entries: key/value strings saved with the file.
#include <string>
#include <utility>
#include <vector>

namespace mayasim {

using FileInfoEntries = std::vector<std::pair<std::string, std::string>>;

const FileInfoEntries& fileInfo(); // in the order the keys were first set
void setFileInfo(const std::string& key, const std::string& value);
void clearFileInfo(); // a new scene starts empty

} // namespace mayasim
