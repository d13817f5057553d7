#include "tabvex/item_def.h"

#include "layout/descriptor_parser.h"
#include "platform/guard.h"
#include "tabvex/result_codes.h"

int CItemDef::ParseFormat(const char* descriptor) {
    if (descriptor == nullptr) {
        return TABVEX_DESCRIPTOR_BAD_FORMAT;
    }
    return tabvex::Guarded([&] { return tabvex::CDescriptorParser(descriptor, *this).Parse(); });
}
