#pragma once

#include "faces/com/control/part.h"

#include <ocidl.h>

namespace pixmo::com {

class PagesPart : public Part<ISpecifyPropertyPages> {
public:
    using Part::Part;

    STDMETHODIMP GetPages(CAUUID* pages) override;

protected:
    ~PagesPart() = default;
};

} // namespace pixmo::com
