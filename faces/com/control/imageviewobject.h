#pragma once

#include "faces/com/base/comobject.h"
#include "faces/com/control/describingparts.h"
#include "faces/com/control/embeddingparts.h"
#include "faces/com/control/imageviewpart.h"
#include "faces/com/control/persistparts.h"
#include "faces/com/control/pictureparts.h"
#include "faces/com/control/placeparts.h"
#include "faces/com/control/siteparts.h"

namespace pixmo::com {

/// The context comes before the parts that refer to it, and ends after them.
class ContextHolder {
protected:
    ControlContext context_;
};

using ImageViewParts =
    ComObject<ImageViewPart, OleObjectPart, OleControlPart, InPlacePart, ActivePart, ViewPart, DataPart,
              PersistStreamPart, PersistBagPart, PersistStoragePart, ConnectionsPart, ClassInfoPart,
              SafetyPart, QuickActivatePart, PagesPart, BrowsingPart, ErrorInfoPart, ObjectSitePart>;

/// The control as a host has it.
class ImageViewObject final : private ContextHolder, public ImageViewParts {
public:
    explicit ImageViewObject(IUnknown* outer) : ImageViewParts(outer, ContextHolder::context_) {
        ContextHolder::context_.attach(known(), *this);
    }
    /// While all parts are still there: what ends may call back.
    ~ImageViewObject() override { ContextHolder::context_.end(); }

    /// For a program that has the control's code in itself.
    ControlContext& context() { return ContextHolder::context_; }

    /// For the class factory.
    static IUnknown* make(IUnknown* outer) { return &(new ImageViewObject(outer))->identity(); }
};

} // namespace pixmo::com
