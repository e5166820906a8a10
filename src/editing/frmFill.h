// The channel fill dialog: writes frequencies into a run of channels. It holds the link to the data store; its controls
// and its work are not built, and nothing shows it.
#pragma once

#include <utility>

#include "model/data_store.h"
#include "ui/form.h"

namespace telvar::editing {

class frmFill : public ui::Form {
public:
    frmFill() : Form("frmFill") { setCaption("Channel Fill"); }

    void setCentralDataStore(model::DataStorePointer store) noexcept { store_ = std::move(store); }
    [[nodiscard]] const model::DataStorePointer& centralDataStore() const noexcept { return store_; }

private:
    model::DataStorePointer store_;
};

}  // namespace telvar::editing
