// Numbers that the kernel and its users share.
#pragma once

namespace figk {

/// Holder of the kernel's enumerations.
class TypeDefinitions {
public:
    enum KernelItemType {
        ITEM_NONE = 0,
        ITEM_BLOCK_INSTANCE = 1,
        ITEM_CABLE_INSTANCE = 2,
        ITEM_CONNECTOR_INSTANCE = 3,
        ITEM_DESIGN = 4,
        ITEM_FORMAT = 5,
        ITEM_GENERIC_GRAPHIC = 6,
        ITEM_HIGHWAY = 7,
        ITEM_HIGHWAY_SEGMENT = 8,
        ITEM_MISCELLANEOUS = 9,
        ITEM_NET = 10,
        ITEM_NET_SEGMENT = 11,
        ITEM_PORT = 12,
        ITEM_PORT_NODE = 13,
        ITEM_SHEET = 14,
        ITEM_SUB_HIGHWAY = 15,
        ITEM_SUB_NET = 16,
        ITEM_TABLE_INSTANCE = 17,
        ITEM_TEXT_GRAPHIC = 18,
        ITEM_TITLE_BLOCK = 19
    };
};

/// Versions of the form in which figures are saved.
enum ContentVersion { CONTENT_VERSION_1 = 1 };

}  // namespace figk
