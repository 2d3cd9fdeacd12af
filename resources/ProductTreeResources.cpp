#include "resources/ProductTreeResources.h"

#include <array>
#include <unordered_map>

namespace productTree {

namespace {

using enum ResourceKind;

// clang-format off
constexpr std::array<ResourceRow, 55> c_rows = {{
    {"CM_REMOVE_PRODUCTPART", Command, 7746},
    {"CM_PRODUCT_TREE_HIGHLIGHT", Command, 7752},
    {"CM_INSERT_HYPERTEXT_TO_PROP", Command, 7753},
    {"CM_DESTROY_PROP_HT", Command, 7754},
    {"CM_EDIT_PROP_HT", Command, 7755},
    {"CM_CONVERT_TO_BILLET", Command, 7757},
    {"CM_PRODUCT_TREE_ITEM_PROPERTIES", Command, 7758},
    {"CM_PRODUCT_TREE_RECALC_VALUE", Command, 7759},
    {"CM_EDIT_SPEC_ROUGH_SIGN", Command, 7761},
    {"CM_PRODUCT_TREE_REFERENCE_BOOK", Command, 7762},
    {"CM_PRODUCT_TREE_GOTO_FEATURE_IN_TREE", Command, 7763},
    {"CM_PRODUCT_TREE_ADD_BILLET", Command, 7764},
    {"CM_PRODUCT_TREE_TRANSMIT_TO_SOURCE", Command, 7765},
    {"CM_PRODUCT_TREE_CALCULATE_POSITIONS", Command, 7766},
    {"CM_PRODUCT_TREE_INSERT_EXTENDED_REFERENCE", Command, 7787},
    {"CM_PRODUCT_TREE_SET_BY_SOURCE", Command, 7789},
    {"CM_PRODUCT_TREE_HIDE_COLUMN", Command, 7790},
    {"CM_PRODUCT_TREE_AGGRINTOPROD_ON", Command, 7791},
    {"CM_PRODUCT_TREE_AGGRINTOPROD_OFF", Command, 7792},
    {"CM_PRODUCT_TREE_INCURDESCR_ON", Command, 7793},
    {"CM_PRODUCT_TREE_INCURDESCR_OFF", Command, 7794},
    {"CM_PRODUCT_TREE_MANAGE_PROPERTIES", Command, 7795},
    {"CM_2D_COMPONENT_EDIT_OUT_PLACE", Command, 7020},
    {"CM_EDIT_INSERTFRG_SOURCE", Command, 5707},
    {"IDM_PRODUCT_TREE_ITEM_CONTEXT_MENU", Command, 31064},
    {"IDM_PRODUCT_TREE_COLUMN_CONTEXT_MENU", Command, 31069},
    {"IDM_PRODUCT_TREE_MULTISEL_ITEM_CONTEXT_MENU", Command, 31070},
    {"IDS_PRODUCTTREE_DEL_OBJECT", String, 31014},
    {"IDS_PRODUCTTREE_DEL_OBJECTS", String, 31015},
    {"IDS_PRODUCTTREE_NAME", String, 31021},
    {"IDS_PRODUCT_TREE_BILLET_NAME_POSTFIX", String, 31022},
    {"IDS_DEF_ROOT_NAME_PRODUCT_TEE", String, 31023},
    {"IDS_DEF_COLUMN_NAME_PRODUCT_TEE", String, 31024},
    {"IDS_DEF_COLUMN_VALUE_PRODUCT_TEE", String, 31025},
    {"IDS_ALL_EMBODIMENTS", String, 31026},
    {"IDS_COUNT_FOR_EMBODIMENT", String, 31027},
    {"IDS_PRODUCTTREE_COL_DLG_CAPTION", String, 31060},
    {"IDS_PRODUCTTREE_DELETE_CONFIRMATION", String, 31065},
    {"IDS_PRODUCTTREE_DEL_SECTION_CONFIRMATION", String, 31066},
    {"IDS_PRODUCTTREE_SPC_GROUP_CELL_MIXED_VALUE_TIP", String, 31067},
    {"IDS_PRODUCTTREE_MULTISEL_DEL_CONFIRMATION", String, 31068},
    {"IDS_YES", String, 31000},
    {"IDS_NO", String, 31001},
    {"IDS_SP_SOURCE_CAPTION", String, 31002},
    {"IDS_SP_NUMB_CAPTION", String, 31003},
    {"SPC_STR_TYPE_COLUMN_13", String, 31004},
    {"IDS_DOC_FORMAT", String, 31005},
    {"IDS_SP_FILE_CAPTION", String, 31006},
    {"IDS_SP_MARK_CAPTION", String, 31007},
    {"IDS_DOC_MARKING", String, 31008},
    {"IDS_SP_COMMENT_CAPTION", String, 31009},
    {"IDS_MARKING_BASE_PART", String, 31010},
    {"IDS_MARKING_EMBODYMENT_NUMBER_PART", String, 31011},
    {"IDS_MARKING_ADDITION_NUMBER_PART", String, 31012},
    {"IDS_MARKING_DOC_CODE_PART", String, 31013},
}};
// clang-format on

struct Module {
    ResourceModuleHandle handle{"oProductTree", c_rows};
    std::unordered_map<ResourceName, unsigned> ids;

    Module() {
        ids.reserve(c_rows.size());
        for (const ResourceRow& row : c_rows)
            ids.emplace(ResourceName{row.name, row.kind}, row.id);
    }
};

const Module& GetModule() {
    static const Module module;
    return module;
}

} // namespace

std::span<const ResourceRow> GetResourceRows() {
    return c_rows;
}

const ResourceModuleHandle& GetResourceModule() {
    return GetModule().handle;
}

unsigned FindResourceId(const ResourceName& resource) {
    const auto& ids = GetModule().ids;
    const auto found = ids.find(resource);
    return found == ids.end() ? 0 : found->second;
}

SharedText GetResourceText(std::string_view name) {
    const unsigned id = FindResourceId({name, ResourceKind::String});
    return id == 0 ? SharedText() : ItResId(GetResourceModule(), id).GetText();
}

} // namespace productTree
