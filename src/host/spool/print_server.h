// The CUPS server and its queues.
#pragma once

#include <cups/cups.h>

#include <memory>
#include <string>
#include <vector>

#include "printers.h"

struct ServerCloser {
    void operator()(http_t* server) const { httpClose(server); }
};
using Server = std::unique_ptr<http_t, ServerCloser>;

// A connection to the server, or null when none answers at once.
Server ConnectServer();

// A queue as the server's calls want it, with what it can do. Empty for one that isn't there.
struct Destination {
    Destination(http_t* server, const std::string& name)
        : destination(cupsGetNamedDest(server, name.c_str(), nullptr)),
          info(destination != nullptr ? cupsCopyDestInfo(server, destination) : nullptr) {}
    ~Destination() {
        cupsFreeDestInfo(info);
        cupsFreeDests(destination != nullptr ? 1 : 0, destination);
    }
    Destination(const Destination&) = delete;
    Destination& operator=(const Destination&) = delete;

    cups_dest_t* destination;
    cups_dinfo_t* info;
};

// Whether the server has a queue of that name. (Asking the server's library for one that it hasn't got would make it
// search the network.)
bool HasQueue(http_t* server, const std::string& name);

// A queue as a printer; null when the server doesn't tell of it.
PrinterRef MakeQueuePrinter(http_t* server, const std::string& name);

// ---- queues as printers -----------------------------------------------------------------------------------------

// The queue of a name, or null; also where no server answers.
PrinterRef FindQueue(const char* name);

std::vector<PrinterRef> ListQueues();

// The user's default queue, else the server's; empty for none.
std::string DefaultQueueName();
