#pragma once

#include "apps/engine/engineserver.h"
#include "tests/engine/rawclient.h"
#include "tests/engine/samplefolder.h"
#include "tests/engine/viewer.h"

#include <gtest/gtest.h>
#include <memory>
#include <stdexcept>
#include <string>

namespace pixmo {

/// A server with one document, 1234, of one large and one small page.
class ServerTest : public testing::Test {
protected:
    static constexpr size_t PageBytes = 20'000;

    ServerTest() {
        folder_.write("docs/1234/page1.png", sampleBytes(PageBytes));
        folder_.write("docs/1234/page2.png", sampleBytes(100));
        options_.engine.documents = folder_.path() / "docs";
    }

    void start(const std::string& faults = "") {
        options_.faults = parseFaults(faults);
        server_ = std::make_unique<EngineServer>(options_);
        http_ = std::make_unique<httplib::Client>("127.0.0.1", server_->port());
        http_->set_keep_alive(true);
    }

    httplib::Result get(const std::string& query) { return http_->Get("/engine?" + query); }

    /// The page of the document, of a viewer known to the server.
    std::string page(const std::string& number = "1") const {
        return "/engine?" + viewer_.getPage("1234", number);
    }

    void contact() {
        const auto answer = get(viewer_.contact());
        if (!answer || viewer_.readable(answer->body) != "IC|OK")
            throw std::runtime_error("no contact");
    }

    SampleFolder folder_;
    Viewer viewer_;
    ServerOptions options_;
    std::unique_ptr<EngineServer> server_;
    std::unique_ptr<httplib::Client> http_;
};

} // namespace pixmo
