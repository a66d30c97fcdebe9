// Message queues, sending and posting, and what a window does with a message that its class leaves alone.
#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <cstring>
#include <deque>
#include <mutex>

#include "window.h"

// A message sent from another thread, which waits for the answer. Both threads hold it: the sender may give up first.
struct SentMessage {
    MSG message = {};
    LRESULT result = 0;
    bool answered = false;
    std::shared_ptr<HostThreadQueue> sender;
};

struct HostThreadQueue {
    std::mutex lock;
    std::condition_variable arrived;
    std::deque<MSG> posted;
    std::deque<std::shared_ptr<SentMessage>> sent;
    bool quitPosted = false;
    INT exitCode = 0;
    bool ended = false;  // the thread is gone; nothing answers here any more
};

namespace {

// Ends with the thread: whoever waits for an answer from here gets 0.
struct QueueOfThread {
    std::shared_ptr<HostThreadQueue> queue = std::make_shared<HostThreadQueue>();

    QueueOfThread() = default;
    ~QueueOfThread() {
        std::deque<std::shared_ptr<SentMessage>> unanswered;
        {
            const std::lock_guard guard(queue->lock);
            queue->ended = true;
            unanswered.swap(queue->sent);
        }
        for (const auto& sent : unanswered) {
            const auto sender = sent->sender;
            const std::lock_guard guard(sender->lock);
            sent->answered = true;
            sender->arrived.notify_all();
        }
    }
    QueueOfThread(const QueueOfThread&) = delete;
    QueueOfThread& operator=(const QueueOfThread&) = delete;
};

using Clock = std::chrono::steady_clock;
constexpr Clock::time_point kNever = Clock::time_point::max();

LRESULT CallProcedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    const HostWindowData* window = HostFindWindow(handle);
    return window == nullptr ? 0 : window->procedure(handle, message, wParam, lParam);
}

// The queue of the thread that a window belongs to; null, with the last error set, for no window.
std::shared_ptr<HostThreadQueue> QueueOfWindow(HWND handle) {
    const std::lock_guard guard(HostTreeLock());
    const HostWindowData* window = HostFindWindow(handle);
    if (window != nullptr) return window->queue;
    SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return nullptr;
}

// Answers the messages that other threads have sent here. The lock is open while a procedure runs.
void AnswerSentMessages(HostThreadQueue& queue, std::unique_lock<std::mutex>& held) {
    while (!queue.sent.empty()) {
        const auto sent = queue.sent.front();
        queue.sent.pop_front();
        held.unlock();
        const MSG& m = sent->message;
        const LRESULT result = CallProcedure(m.hwnd, m.message, m.wParam, m.lParam);
        const auto sender = sent->sender;
        {
            const std::lock_guard guard(sender->lock);
            sent->result = result;
            sent->answered = true;
            sender->arrived.notify_all();
        }
        held.lock();
    }
}

// Whether the answer has come in time.
bool SendToThread(HostThreadQueue& target, const MSG& message, Clock::time_point until, LRESULT* result) {
    const auto& own = HostQueueOfThread();
    const auto sent = std::make_shared<SentMessage>();
    sent->message = message;
    sent->sender = own;
    *result = 0;
    {
        const std::lock_guard guard(target.lock);
        if (target.ended) return true;
        target.sent.push_back(sent);
        target.arrived.notify_all();
    }
    std::unique_lock held(own->lock);
    const auto isAwake = [&] { return sent->answered || !own->sent.empty(); };
    while (!sent->answered) {
        AnswerSentMessages(*own, held);
        if (sent->answered) break;
        if (until == kNever) {
            own->arrived.wait(held, isAwake);
        } else if (!own->arrived.wait_until(held, until, isAwake)) {
            return false;
        }
    }
    *result = sent->result;
    return true;
}

bool IsWanted(const MSG& message, HWND window, UINT first, UINT last) {
    if (window != nullptr && message.hwnd != window) return false;
    return (first == 0 && last == 0) || (message.message >= first && message.message <= last);
}

// Takes or shows the first posted message that is wanted; a quit comes when the queue holds no other.
bool FindPosted(HostThreadQueue& queue, MSG* message, HWND window, UINT first, UINT last, bool remove) {
    const auto found = std::find_if(queue.posted.begin(), queue.posted.end(),
                                    [&](const MSG& m) { return IsWanted(m, window, first, last); });
    if (found != queue.posted.end()) {
        *message = *found;
        if (remove) queue.posted.erase(found);
        return true;
    }
    if (!queue.quitPosted) return false;
    *message = MSG{nullptr, WM_QUIT, static_cast<WPARAM>(queue.exitCode), 0};
    if (remove) queue.quitPosted = false;
    return true;
}

LRESULT DefaultText(HostWindowData* window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_GETTEXTLENGTH) return static_cast<LRESULT>(window->text.size());
    if (message == WM_SETTEXT) {
        const auto* text = reinterpret_cast<const char*>(lParam);
        window->text = text == nullptr ? "" : text;
        return 1;
    }
    if (wParam == 0) return 0;
    auto* buffer = reinterpret_cast<char*>(lParam);
    const size_t length = std::min<size_t>(wParam - 1, window->text.size());
    std::memcpy(buffer, window->text.data(), length);
    buffer[length] = 0;
    return static_cast<LRESULT>(length);
}

}  // namespace

const std::shared_ptr<HostThreadQueue>& HostQueueOfThread() {
    static thread_local QueueOfThread own;
    return own.queue;
}

std::shared_ptr<HostThreadQueue> HostQueueOfNobody() {
    auto queue = std::make_shared<HostThreadQueue>();
    queue->ended = true;
    return queue;
}

LRESULT SendMessageA(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    const auto target = QueueOfWindow(handle);
    if (target == nullptr) return 0;
    if (target == HostQueueOfThread()) return CallProcedure(handle, message, wParam, lParam);
    LRESULT result = 0;
    SendToThread(*target, MSG{handle, message, wParam, lParam}, kNever, &result);
    return result;
}

LRESULT SendMessageTimeoutA(HWND handle, UINT message, WPARAM wParam, LPARAM lParam, UINT flags, UINT milliseconds,
                            DWORD_PTR* result) {
    if (handle == HWND_BROADCAST) {
        for (const HWND window : HostTopLevelWindows()) {
            SendMessageTimeoutA(window, message, wParam, lParam, flags, milliseconds, result);
        }
        return TRUE;
    }
    const auto target = QueueOfWindow(handle);
    if (target == nullptr) return FALSE;
    LRESULT answer = 0;
    bool inTime = true;
    if (target == HostQueueOfThread()) {
        answer = CallProcedure(handle, message, wParam, lParam);
    } else {
        const auto until = Clock::now() + std::chrono::milliseconds(milliseconds);
        inTime = SendToThread(*target, MSG{handle, message, wParam, lParam}, until, &answer);
    }
    if (result != nullptr) *result = static_cast<DWORD_PTR>(answer);
    if (!inTime) SetLastError(ERROR_TIMEOUT);
    return inTime ? TRUE : FALSE;
}

BOOL PostMessageA(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    const auto target = QueueOfWindow(handle);
    if (target == nullptr) return FALSE;
    const std::lock_guard guard(target->lock);
    if (target->ended) return FALSE;
    target->posted.push_back(MSG{handle, message, wParam, lParam});
    target->arrived.notify_all();
    return TRUE;
}

void PostQuitMessage(INT exitCode) {
    const auto& own = HostQueueOfThread();
    const std::lock_guard guard(own->lock);
    own->quitPosted = true;
    own->exitCode = exitCode;
}

BOOL PeekMessageA(MSG* message, HWND window, UINT first, UINT last, UINT remove) {
    const auto& own = HostQueueOfThread();
    std::unique_lock held(own->lock);
    AnswerSentMessages(*own, held);
    return FindPosted(*own, message, window, first, last, (remove & PM_REMOVE) != 0) ? TRUE : FALSE;
}

BOOL GetMessageA(MSG* message, HWND window, UINT first, UINT last) {
    const auto& own = HostQueueOfThread();
    std::unique_lock held(own->lock);
    for (;;) {
        AnswerSentMessages(*own, held);
        if (FindPosted(*own, message, window, first, last, true)) return message->message != WM_QUIT ? TRUE : FALSE;
        own->arrived.wait(held);
    }
}

void HostWaitForMessage() {
    const auto& own = HostQueueOfThread();
    std::unique_lock held(own->lock);
    AnswerSentMessages(*own, held);
    while (own->posted.empty() && !own->quitPosted) {
        own->arrived.wait(held);
        AnswerSentMessages(*own, held);
    }
}

BOOL TranslateMessage(const MSG* message) {
    // Keys whose character doesn't depend on a keyboard layout; applications post the other characters themselves.
    if (message->message != WM_KEYDOWN || (message->wParam != VK_BACK && message->wParam != VK_TAB)) return FALSE;
    return PostMessageA(message->hwnd, WM_CHAR, message->wParam, message->lParam);
}

LRESULT DispatchMessageA(const MSG* message) {
    return CallProcedure(message->hwnd, message->message, message->wParam, message->lParam);
}

LRESULT DefWindowProcA(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    HostWindowData* window = HostFindWindow(handle);
    if (window == nullptr) return 0;
    switch (message) {
        case WM_NCCREATE: {
            const char* text = reinterpret_cast<const CREATESTRUCTA*>(lParam)->lpszName;
            window->text = text == nullptr ? "" : text;
            return 1;
        }
        case WM_SETTEXT:
        case WM_GETTEXT:
        case WM_GETTEXTLENGTH: return DefaultText(window, message, wParam, lParam);
        case WM_SETFONT: window->font = reinterpret_cast<HANDLE>(wParam); return 0;
        case WM_GETFONT: return reinterpret_cast<LRESULT>(window->font);
        case WM_CLOSE: DestroyWindow(handle); return 0;
        case WM_SYSCOMMAND: return wParam == SC_CLOSE ? SendMessageA(handle, WM_CLOSE, 0, 0) : 0;
        default: return 0;
    }
}

LRESULT CallWindowProcA(WNDPROC procedure, HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return procedure != nullptr ? procedure(window, message, wParam, lParam) : 0;
}
