#pragma once

#include "editor/entry_row.h"
#include "program/program_store.h"
#include "program/texts.h"

namespace kvt {

// Tells beside the entry row which line it will write: the frame names it, the list marks the row that the fields show,
// and below the fields stands what the line holds that would change.
class EntryTarget {
public:
    EntryTarget(EntryRow& entry, ProgramStore& store, const Texts& language)
        : entry_(entry), store_(store), language_(language) {}

    // For the row that an edit would be written to; 0 where there is none.
    void Refresh(int row);

private:
    std::string Lead(int row) const;
    std::string Before(int row);
    std::string ChangedFields();

    EntryRow& entry_;
    ProgramStore& store_;
    const Texts& language_;
};

}  // namespace kvt
