#pragma once

#include <functional>
#include <string>

/// A file system that lacks what others have. While it lives, all naming of files by this process meets it.
class AwkwardFileSystem {
public:
    AwkwardFileSystem();
    ~AwkwardFileSystem();
    AwkwardFileSystem(const AwkwardFileSystem&) = delete;
    AwkwardFileSystem& operator=(const AwkwardFileSystem&) = delete;

    bool knowsRenamingWithoutReplacing = true;
    bool knowsLinks = true;
    bool storesFolders = true;

    /// Told of the name that a file has and the one that it is about to get: "rename" without replacing, or
    /// "link".
    std::function<void(const std::string& step, const std::string& from, const std::string& to)> beforeNaming;
};
