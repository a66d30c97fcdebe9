#include "print_server.h"

#include <cups/cups.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>

#include <morvl15/host_native.h>

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

constexpr std::chrono::seconds kPatience{8};
constexpr useconds_t kTick = 10000;
constexpr fs::perms kReadAndRun{0555};

// The server's files; "@" in them stands for its folder.
const std::string kConfiguration = fs::path(__FILE__).parent_path() / "../support/print_server";

void PutFile(const std::string& path, std::string text, const std::string& folder) {
    for (size_t at = text.find('@'); at != std::string::npos; at = text.find('@', at)) text.replace(at, 1, folder);
    std::ofstream(path) << text;
}

std::string TextOf(const fs::path& file) {
    std::stringstream text;
    text << std::ifstream(file).rdbuf();
    return text.str();
}

bool WaitFor(const std::function<bool()>& condition) {
    const Clock::time_point end = Clock::now() + kPatience;
    while (!condition()) {
        if (Clock::now() > end) return false;
        usleep(kTick);
    }
    return true;
}

http_t* Connect(const std::string& socket) {
    return httpConnect2(socket.c_str(), IPP_PORT, nullptr, AF_UNSPEC, HTTP_ENCRYPTION_IF_REQUESTED, 1, 1000, nullptr);
}

}  // namespace

TestPrintServer::TestPrintServer() {
    std::string folder = "/tmp/morvl15-cups-XXXXXX";
    if (mkdtemp(folder.data()) == nullptr) return;
    folder_ = folder;
    socket_ = folder_ + "/socket";
    fs::permissions(folder_, fs::perms{0711});
    for (const char* name : {"/root/ppd", "/spool", "/tmp", "/cache", "/state", "/log", "/filters"})
        fs::create_directories(folder_ + name);
    for (const char* name :
         {"/cupsd.conf", "/cups-files.conf", "/root/printers.conf", "/root/ppd/Paper.ppd", "/filters/pass"})
        PutFile(folder_ + name, TextOf(kConfiguration + name), folder_);
    fs::permissions(folder_ + "/filters/pass", kReadAndRun);
    fs::permissions(folder_ + "/filters", kReadAndRun | fs::perms::owner_write);
    // A copy of the program: systems that confine the daemon by its path would keep it out of the folder.
    const std::string program = folder_ + "/cupsd";
    fs::copy_file("/usr/sbin/cupsd", program);
    process_ = fork();
    if (process_ == 0) {
        std::freopen((folder_ + "/log/stderr").c_str(), "w", stderr);
        execl(program.c_str(), program.c_str(), "-f", "-c", (program + ".conf").c_str(), "-s",
              (folder_ + "/cups-files.conf").c_str(), nullptr);
        _exit(127);
    }
    if (!WaitFor([this] { return Answers(); })) Stop();
    HostSetPrintServer(socket_.c_str());
}

TestPrintServer::~TestPrintServer() {
    Stop();
    HostSetPrintServer(nullptr);
    if (!folder_.empty()) fs::remove_all(folder_);
}

void TestPrintServer::Stop() {
    if (process_ <= 0) return;
    kill(process_, SIGTERM);
    waitpid(process_, nullptr, 0);
    process_ = 0;
}

bool TestPrintServer::Answers() const {
    http_t* server = Connect(socket_);
    httpClose(server);
    return server != nullptr;
}

std::string TestPrintServer::Log() const {
    return TextOf(folder_ + "/log/stderr") + TextOf(folder_ + "/log/error");
}

std::string TestPrintServer::Jobs(const char* queue) const {
    http_t* server = Connect(socket_);
    cups_job_t* jobs = nullptr;
    const int count = cupsGetJobs2(server, &jobs, queue, 0, CUPS_WHICHJOBS_ACTIVE);
    std::string list;
    for (int index = 0; index < count; ++index)
        list += (index > 0 ? "," : "") + std::to_string(jobs[index].id) + " " +
                ippEnumString("job-state", jobs[index].state) + " " + jobs[index].title;
    cupsFreeJobs(count, jobs);
    httpClose(server);
    return list;
}

bool TestPrintServer::WaitUntilDone(const char* queue) const {
    return WaitFor([&] { return Jobs(queue).empty(); });
}

void TestPrintServer::Remove(const char* queue) const {
    http_t* server = Connect(socket_);
    ipp_t* request = ippNewRequest(IPP_OP_CUPS_DELETE_PRINTER);
    const std::string uri = std::string("ipp://localhost/printers/") + queue;
    ippAddString(request, IPP_TAG_OPERATION, IPP_TAG_URI, "printer-uri", nullptr, uri.c_str());
    ippDelete(cupsDoRequest(server, request, "/admin/"));
    httpClose(server);
}
