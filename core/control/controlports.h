#pragma once

#include "core/imaging/pagedecoder.h"
#include "core/platform/asyncreader.h"
#include "core/platform/clipboard.h"
#include "core/platform/clock.h"
#include "core/platform/container.h"
#include "core/platform/dialogs.h"
#include "core/platform/eventloop.h"
#include "core/platform/identity.h"
#include "core/platform/messagebox.h"
#include "core/platform/pagewriter.h"
#include "core/platform/printers.h"
#include "core/platform/scratchfolder.h"
#include "core/platform/settingsstore.h"
#include "core/platform/thumbnailhost.h"
#include "core/platform/timer.h"
#include "core/platform/viewsurface.h"

#include <memory>

namespace pixmo {

/// The answers of one face to the questions of one control. The control keeps them as long as any of its
/// procedures runs, which may be longer than the face's window lives.
struct ControlPorts {
    std::shared_ptr<MessageBox> messageBox;
    std::shared_ptr<EventLoop> eventLoop;
    std::shared_ptr<TimerFactory> timers;
    std::shared_ptr<AsyncReader> reader;
    std::shared_ptr<SettingsStore> settings;
    std::shared_ptr<Identity> identity;
    std::shared_ptr<Clock> clock;
    std::shared_ptr<ScratchFolder> scratch;
    std::shared_ptr<Container> container;
    std::shared_ptr<ViewSurface> viewSurface;
    std::shared_ptr<PageDecoder> decoder;
    std::shared_ptr<Dialogs> dialogs;
    std::shared_ptr<Clipboard> clipboard;
    std::shared_ptr<PageWriter> pageWriter;
    std::shared_ptr<ThumbnailHost> thumbnailHost; ///< may be missing: then there are no thumbnails
    std::shared_ptr<Printers> printers;           ///< may be missing: then nothing can be printed
};

} // namespace pixmo
