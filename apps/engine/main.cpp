#include "apps/engine/engineserver.h"
#include "apps/engine/faultplan.h"
#include "apps/engine/property.h"

#include <CLI/CLI.hpp>
#include <csignal>
#include <exception>
#include <iostream>
#include <limits>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

constexpr const char* FaultHelp =
    "Something to go wrong, KIND:REQUEST[=VALUE][@N] with REQUEST IC, PC, GP or ALL, @N for the first N "
    "only; "
    "KIND: stall, delay (=ms), drip (=bytes per second), reset, close, empty, http (=status), http500, "
    "http404, "
    "http401, errtext, er, wrongkey, garbage (=seed), truncated, redirect, html";

/// The options as texts, before they are checked.
struct Arguments {
    pixmo::ServerOptions options;
    std::vector<std::string> properties;
    std::vector<std::string> faults;
    int64_t delay = 0;
};

void declare(CLI::App& app, Arguments& arguments) {
    pixmo::ServerOptions& options = arguments.options;
    app.set_version_flag("--version", "engine " PIXMO_VERSION);
    app.add_option("--docs", options.engine.documents, "Folder of documents: DIR/<number>/<page files>")
        ->required()
        ->check(CLI::ExistingDirectory);
    app.add_option("--address", options.address, "Address to listen on")->capture_default_str();
    app.add_option("--port", options.port, "Port, 0 for any free one")
        ->capture_default_str()
        ->check(CLI::Range(0, 65535));
    app.add_option("--delimiter", options.engine.delimiter, "Character between the fields")
        ->capture_default_str();
    app.add_option("--enc-bytes", options.engine.protectedBytes,
                   "Leading bytes of a page that are reversed, -1 for all; when not given, the property "
                   "EncBytes, or else 1640")
        ->check(CLI::Range(-1, std::numeric_limits<int32_t>::max()));
    app.add_option("--log", options.log, "File that gets a line for every request");
    app.add_option("--property", arguments.properties,
                   "NAME=VALUE, a property that viewers are told at the initial contact")
        ->allow_extra_args(false);
    app.add_option("--delay", arguments.delay, "Milliseconds before every answer")
        ->check(CLI::Range(0, 3'600'000));
    app.add_option("--fault", arguments.faults, FaultHelp)->allow_extra_args(false);
    app.add_flag("--control", options.control, "Serve POST /faults (lines as for --fault) and GET /stats");
}

pixmo::ServerOptions checked(const Arguments& arguments) {
    pixmo::ServerOptions options = arguments.options;
    options.delay = std::chrono::milliseconds(arguments.delay);
    for (const std::string& text : arguments.properties) {
        const auto property = pixmo::parseProperty(text);
        if (!property)
            throw std::invalid_argument("Property '" + text + "': expected NAME=VALUE.");
        options.engine.properties.push_back(*property);
    }
    for (const std::string& text : arguments.faults)
        options.faults.push_back(pixmo::parseFault(text));
    return options;
}

/// Serves until the user or the system asks for the end.
void serve(const pixmo::ServerOptions& options) {
    sigset_t ends;
    sigemptyset(&ends);
    sigaddset(&ends, SIGINT);
    sigaddset(&ends, SIGTERM);
    // Before any thread starts, so that all of them leave these signals to sigwait.
    pthread_sigmask(SIG_BLOCK, &ends, nullptr);
    const pixmo::EngineServer server(options);
    std::cout << "listening on " << server.address() << std::endl;
    int received = 0;
    sigwait(&ends, &received);
}

} // namespace

int main(int argc, char** argv) {
    CLI::App app("A sample imaging server for document viewers", "engine");
    Arguments arguments;
    declare(app, arguments);
    CLI11_PARSE(app, argc, argv);
    try {
        serve(checked(arguments));
        return 0;
    } catch (const std::exception& failure) {
        std::cerr << "engine: " << failure.what() << '\n';
        return 1;
    }
}
