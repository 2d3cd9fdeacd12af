// The host's string and command resources of a module.
#pragma once

#include "host/SharedText.h"

#include <functional>
#include <span>
#include <string>
#include <string_view>

enum class ResourceKind { String = 0, Command = 3 };

/// A resource is known by its name and kind together.
struct ResourceName {
    std::string_view name;
    ResourceKind kind = ResourceKind::String;

    friend bool operator==(const ResourceName&, const ResourceName&) = default;
};

template <>
struct std::hash<ResourceName> {
    std::size_t operator()(const ResourceName& resource) const noexcept {
        return std::hash<std::string_view>{}(resource.name);
    }
};

struct ResourceRow {
    std::string_view name;
    ResourceKind kind;
    unsigned id;
};

/// An open resource module of the host.
class ResourceModuleHandle {
public:
    /// Opens the module of that name. `rows` are its resources, which the host from now on finds by
    /// name; they must live as long as the process. An unknown module opens as one without texts.
    ResourceModuleHandle(std::string_view moduleName, std::span<const ResourceRow> rows);

    const std::string& GetName() const noexcept { return m_name; }
    /// The text of a string resource in the user's language; empty for an id without one.
    SharedText GetText(unsigned id) const;

private:
    std::string m_name;
};

/// A resource of a module, as the host passes it around.
class ItResId {
public:
    ItResId(const ResourceModuleHandle& module, unsigned id) : m_module(module), m_id(id) {}

    unsigned GetId() const noexcept { return m_id; }
    SharedText GetText() const { return m_module.GetText(m_id); }

private:
    const ResourceModuleHandle& m_module;
    unsigned m_id;
};
