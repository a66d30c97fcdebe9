// Reaching the CUPS server, without ever waiting for long.
#include "print_server.h"

#include <strings.h>

#include <chrono>
#include <cstdlib>
#include <mutex>
#include <optional>

namespace {

using Clock = std::chrono::steady_clock;

constexpr int kConnectMilliseconds = 1000;
constexpr double kAnswerSeconds = 3;
constexpr std::chrono::seconds kRest{5};  // for a server that couldn't be reached

struct ServerChoice {
    std::mutex lock;
    std::optional<std::string> name;  // none: the environment's
    std::optional<Clock::time_point> restUntil;
};

ServerChoice& Choice() {
    static ServerChoice choice;
    return choice;
}

struct ServerAddress {
    std::string host;
    int port;
};

// "host", "host:port", or the path of a socket.
ServerAddress AddressOf(const std::string& name) {
    const size_t colon = name[0] != '/' ? name.rfind(':') : std::string::npos;
    if (colon == std::string::npos) return {name, IPP_PORT};
    return {name.substr(0, colon), std::atoi(name.c_str() + colon + 1)};
}

// The address to try; none for no server, and for one that is left alone.
std::optional<ServerAddress> AddressToTry() {
    ServerChoice& choice = Choice();
    const std::lock_guard guard(choice.lock);
    if (choice.restUntil.has_value() && Clock::now() < *choice.restUntil) return std::nullopt;
    if (!choice.name.has_value()) return ServerAddress{cupsServer(), ippPort()};
    if (choice.name->empty()) return std::nullopt;
    return AddressOf(*choice.name);
}

void LeaveAlone() {
    ServerChoice& choice = Choice();
    const std::lock_guard guard(choice.lock);
    choice.restUntil = Clock::now() + kRest;
}

int GiveUpWaiting(http_t* /*server*/, void* /*value*/) {
    return 0;
}

// Adds the names that an answer tells.
void TakeNames(ipp_t* answer, std::vector<std::string>* names) {
    ipp_attribute_t* name = ippFindAttribute(answer, "printer-name", IPP_TAG_NAME);
    for (; name != nullptr; name = ippFindNextAttribute(answer, "printer-name", IPP_TAG_NAME))
        names->emplace_back(ippGetString(name, 0, nullptr));
}

std::vector<std::string> QueueNames(http_t* server) {
    ipp_t* request = ippNewRequest(IPP_OP_CUPS_GET_PRINTERS);
    ippAddString(request, IPP_TAG_OPERATION, IPP_TAG_KEYWORD, "requested-attributes", nullptr, "printer-name");
    ippAddString(request, IPP_TAG_OPERATION, IPP_TAG_NAME, "requesting-user-name", nullptr, cupsUser());
    ipp_t* answer = cupsDoRequest(server, request, "/");
    std::vector<std::string> names;
    if (answer != nullptr) TakeNames(answer, &names);
    ippDelete(answer);
    return names;
}

}  // namespace

Server ConnectServer() {
    const std::optional<ServerAddress> address = AddressToTry();
    if (!address.has_value()) return nullptr;
    Server server(httpConnect2(address->host.c_str(), address->port, nullptr, AF_UNSPEC, cupsEncryption(), 1,
                               kConnectMilliseconds, nullptr));
    if (server != nullptr)
        httpSetTimeout(server.get(), kAnswerSeconds, GiveUpWaiting, nullptr);
    else
        LeaveAlone();
    return server;
}

bool HasQueue(http_t* server, const std::string& name) {
    for (const std::string& other : QueueNames(server))
        if (strcasecmp(other.c_str(), name.c_str()) == 0) return true;
    return false;
}

void HostSetPrintServer(const char* server) {
    ServerChoice& choice = Choice();
    const std::lock_guard guard(choice.lock);
    choice.name = server != nullptr ? std::optional<std::string>(server) : std::nullopt;
    choice.restUntil.reset();
}

// ---- queues as printers -----------------------------------------------------------------------------------------

PrinterRef FindQueue(const char* name) {
    const Server server = ConnectServer();
    if (server == nullptr || !HasQueue(server.get(), name)) return nullptr;
    return MakeQueuePrinter(server.get(), name);
}

std::vector<PrinterRef> ListQueues() {
    std::vector<PrinterRef> printers;
    const Server server = ConnectServer();
    if (server == nullptr) return printers;
    for (const std::string& name : QueueNames(server.get())) {
        PrinterRef printer = MakeQueuePrinter(server.get(), name);
        if (printer != nullptr) printers.push_back(std::move(printer));
    }
    return printers;
}

std::string DefaultQueueName() {
    const Server server = ConnectServer();
    const char* name = server != nullptr ? cupsGetDefault2(server.get()) : nullptr;
    return name != nullptr ? name : "";
}
