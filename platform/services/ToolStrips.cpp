#include "platform/services/ToolStrips.h"

#include "platform/services/Resources.h"

#include <algorithm>
#include <iterator>

namespace platform {

namespace {

constexpr std::string_view c_module = "oProductTree";
/// So far from the number of a command is that of its tip.
constexpr unsigned c_tips = 20000;

// 0: a line between groups of buttons.
constexpr unsigned c_mainStrip[] = {7745, 7746, 0, 7752, 7766, 7747};
constexpr unsigned c_documentStrip[] = {7783, 7785, 0, 7749, 0, 7751, 7750, 0, 7784};

struct StripResource {
    std::string_view name;
    std::span<const unsigned> commands;
};

constexpr StripResource c_strips[] = {
    {"PRODUCT_TREE_TOOLBAR", c_mainStrip},
    {"PRODUCT_TREE_ADDITIONAL_TOOLBAR", {}},
    {"PRODUCT_TREE_DOC_LIST", c_documentStrip},
};

struct CommandKey {
    unsigned command;
    std::string_view key;
};

constexpr CommandKey c_keys[] = {
    {7745, "Ins"},          // add an object
    {7746, "Del"},          // delete
    {7747, "F5"},           // update all
    {7749, "Return"},       // open a document
    {7752, "Ctrl+H"},       // highlight
    {7753, "Ctrl+K"},       // insert a link
    {7754, "Ctrl+Shift+K"}, // remove it
    {7755, "Ctrl+Alt+K"},   // edit it
    {7758, "Ctrl+I"},       // properties
    {7759, "F9"},           // recalculate
    {7766, "Ctrl+Shift+P"}, // number positions
    {7783, "Ins"},          // add a document
    {7784, "Space"},        // preview
    {7785, "Del"},          // remove a document
};

} // namespace

std::span<const unsigned> FindToolStrip(std::string_view name) {
    const auto* const found = std::ranges::find(c_strips, name, &StripResource::name);
    return found == std::end(c_strips) ? std::span<const unsigned>() : found->commands;
}

CommandFace GetCommandFace(unsigned command) {
    const auto* const found = std::ranges::find(c_keys, command, &CommandKey::command);
    return {GetModuleText(c_module, command), GetModuleText(c_module, command + c_tips),
            found == std::end(c_keys) ? std::string_view() : found->key};
}

} // namespace platform
