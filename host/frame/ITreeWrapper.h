// What the host's panel frame knows of a tree, and where it finds the makers of trees.
#pragma once

#include <functional>
#include <memory>
#include <unordered_map>

class GrABaseFeatureTree;
struct AFX_CMDHANDLERINFO;

struct TreeToolBarCommandData {
    unsigned command = 0;
    long long data = 0;
};

class ITreeWrapper {
public:
    virtual ~ITreeWrapper() = default;

    virtual bool HasOwnMenu() const = 0;
    virtual void TreeToolBarCommand(const TreeToolBarCommandData& data) = 0;
    virtual bool EnableCommand(unsigned command, bool enable) = 0;
    /// Ends the wrapper's life; nothing of it may be used afterwards.
    virtual void Destroy() = 0;
    virtual bool OnCmdMsg(unsigned id, int code, void* extra, AFX_CMDHANDLERINFO* info) = 0;
    /// The tree part of the same object.
    virtual GrABaseFeatureTree* GetFeatureTree() = 0;
};

/// The process-wide registry of tree makers. Libraries enter their trees while they are loaded.
class TreeWrapperRegistrar {
public:
    using Factory = std::function<std::unique_ptr<ITreeWrapper>()>;
    using Factories = std::unordered_map<int, Factory>;

    static Factories& Get();

    /// The key of the product tree's maker.
    static constexpr int c_productTree = 3;
};
