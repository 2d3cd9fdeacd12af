#include "cells/LinkCommands.h"

#include "cells/CellCommands.h"
#include "host/data/IfProductTreeData.h"

namespace productTree {

bool IsLinkCommand(int command) {
    return command == commands::insertHypertext || command == commands::editHypertext ||
           command == commands::destroyHypertext;
}

void ExecLinkCommand(IfProductTreeData& data, int command, const LinkTargets& targets,
                     TreeActionResult& out) {
    out.action = TreeActionResult::Nothing;
    switch (command) {
    case commands::insertHypertext:
        if (targets.canAsk && data.InsertHypertext(targets.all)) {
            out.selectKey = targets.afterInsert;
            out.action = TreeActionResult::Synchronise;
        }
        break;
    case commands::editHypertext:
        if (targets.canAsk && data.EditHypertext(targets.linked)) {
            out.selectKey = targets.afterEdit;
            out.action = TreeActionResult::Synchronise;
        }
        break;
    case commands::destroyHypertext:
        data.DestroyHypertext(targets.linked);
        out.action = TreeActionResult::ValuesChanged;
        break;
    default:
        break;
    }
}

} // namespace productTree
