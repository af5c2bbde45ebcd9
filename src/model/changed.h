#pragma once

#include "model/fields.h"

#include <initializer_list>

namespace kelvo {

/// What brought new values.
enum class Source {
    Edit,       ///< the user's own act
    Upload,     ///< the unit's clock was stamped
    Poll,       ///< the unit's panel, or a call that found another value there
    Update,     ///< the unit was read again, as the user asked
    Reread,     ///< the unit was read again, as it is at intervals
    Connection, ///< a connection was accepted and the unit read
    File,       ///< a settings file
    Reset,      ///< the factory defaults
    Revert,     ///< the unit's settings as the run found them
};

/// Which settings have new values, and from where: what a screen needs to follow.
struct Changed {
    Source source;
    FieldSet fields{};

    static Changed Of(Source source, std::initializer_list<FieldId> ids)
    {
        Changed changed{source};
        for (const FieldId id : ids)
            changed.fields.set(std::size_t(id));
        return changed;
    }
    /// All fields, or all that the unit holds.
    static Changed Everything(Source source) { return {source, FieldSet().set()}; }
    static Changed Unit(Source source)
    {
        Changed changed = Everything(source);
        for (int text = 0; text < TheaterTextCount; ++text)
            changed.fields.reset(std::size_t(field::Theater(text)));
        return changed;
    }

    bool Has(FieldId id) const { return fields.test(std::size_t(id)); }
    bool HasTexts() const { return (fields & ~Unit(source).fields).any(); }
    /// Read rather than edited: nothing of it is to be sent, and what is half typed gives way.
    bool Adopted() const { return source != Source::Edit; }
};

} // namespace kelvo
