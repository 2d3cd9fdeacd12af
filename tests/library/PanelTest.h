// A panel on a product, as a host drives it, with its tree as one line of text.
#pragma once

#include "host/frame/FeatureTrees.h"
#include "platform/view/HostFrame.h"
#include "tests/support/ProductBuilder.h"
#include "tests/support/ViewDump.h"

#include <functional>
#include <memory>
#include <string>
#include <utility>

struct Panel {
    explicit Panel(platform::ProductModel model, platform::PanelStart start = platform::PanelStart::Shown)
        : data(std::make_shared<platform::MemoryProduct>(std::move(model))), frame(data, start) {}

    /// Changes the product and builds the panel again.
    void Change(const std::function<void(platform::ProductModel&)>& change) {
        data->Change(change);
        frame.GetTree().Synchronize();
    }

    std::string Dump(const support::DumpOptions& options = {}) const {
        return support::DumpView(frame.GetView(), options);
    }

    platform::TreeTableView& View() const { return frame.GetView(); }
    GrABaseFeatureTree& Tree() const { return frame.GetTree(); }

    std::shared_ptr<platform::MemoryProduct> data;
    platform::HostFrame frame;
};
