// Files of documents that are there or not as a test says, and what was opened of them.
#pragma once

#include "platform/product/answers/DocumentFiles.h"

#include <map>
#include <set>
#include <string>
#include <vector>

namespace support {

class ScriptedFiles final : public platform::IDocumentFiles {
public:
    std::filesystem::path folder = "/plant";
    std::set<std::string> gone;
    std::map<std::string, platform::SheetSize> sizes;
    std::vector<std::string> opened;
    bool hasProgram = true;

    std::filesystem::path GetFolder() const override { return folder; }
    Found Look(const std::string& path) const override {
        if (gone.contains(path))
            return Found::Nothing;
        return path.ends_with("/") ? Found::Other : Found::File;
    }
    bool Open(const std::string& path) override {
        opened.push_back(path);
        return hasProgram;
    }
    std::optional<platform::SheetSize> FindSheetSize(const std::string& path) override {
        const auto found = sizes.find(path);
        return found == sizes.end() ? std::nullopt : std::optional(found->second);
    }
};

} // namespace support
