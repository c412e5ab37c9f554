#pragma once

#include <cstddef>
#include <functional>
#include <list>
#include <memory>
#include <utility>

namespace pixmo {

/// A happening that others may want to hear of. A handler may raise, connect, disconnect and destroy the
/// event itself while it runs.
template <typename... Args>
class Event {
public:
    using Handler = std::function<void(Args...)>;

    /// Handlers run in the order in which they were connected.
    size_t connect(Handler handler) {
        handlers_->push_back({++last_, std::move(handler), true});
        return last_;
    }

    void disconnect(size_t connection) {
        for (auto& entry : *handlers_)
            if (entry.connection == connection)
                entry.connected = false;
        if (*depth_ == 0)
            sweep(*handlers_);
    }

    bool hasHandlers() const { return !handlers_->empty(); }

    void raise(Args... args) const {
        const auto handlers = handlers_;
        const auto depth = depth_;
        const Nesting nesting(*depth, *handlers);
        size_t present = handlers->size();
        for (auto entry = handlers->begin(); present > 0; ++entry, --present)
            if (entry->connected)
                entry->handler(args...);
    }

private:
    struct Entry {
        size_t connection;
        Handler handler;
        bool connected;
    };
    using Entries = std::list<Entry>;

    static void sweep(Entries& entries) {
        entries.remove_if([](const Entry& entry) { return !entry.connected; });
    }

    /// Entries removed while handlers run are dropped once the outermost raise is over.
    class Nesting {
    public:
        Nesting(size_t& depth, Entries& entries) : depth_(depth), entries_(entries) { ++depth_; }
        ~Nesting() {
            if (--depth_ == 0)
                sweep(entries_);
        }
        Nesting(const Nesting&) = delete;
        Nesting& operator=(const Nesting&) = delete;

    private:
        size_t& depth_;
        Entries& entries_;
    };

    std::shared_ptr<Entries> handlers_ = std::make_shared<Entries>();
    std::shared_ptr<size_t> depth_ = std::make_shared<size_t>(0);
    size_t last_ = 0;
};

} // namespace pixmo
