#pragma once

#include "faces/com/base/comobject.h"
#include "faces/com/control/activepart.h"
#include "faces/com/control/browsingpart.h"
#include "faces/com/control/classinfopart.h"
#include "faces/com/control/connectionspart.h"
#include "faces/com/control/datapart.h"
#include "faces/com/control/errorinfopart.h"
#include "faces/com/control/imageviewpart.h"
#include "faces/com/control/inplacepart.h"
#include "faces/com/control/objectsitepart.h"
#include "faces/com/control/olecontrolpart.h"
#include "faces/com/control/oleobjectpart.h"
#include "faces/com/control/pagespart.h"
#include "faces/com/control/persistbagpart.h"
#include "faces/com/control/persiststoragepart.h"
#include "faces/com/control/persiststreampart.h"
#include "faces/com/control/quickactivatepart.h"
#include "faces/com/control/safetypart.h"
#include "faces/com/control/viewpart.h"

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
