#pragma once

#include "platform/MultitouchSupport.h"

#include <atomic>
#include <span>
#include <vector>

namespace brimlow {

/// Contact frames on their way from the delivery thread to the main thread, in order, none lost.
/// One thread pushes and one pops; neither ever waits for the other. Frames are copied into nodes
/// that are used again, so nothing is allocated unless the main thread falls further behind than
/// ever before.
class FrameQueue {
public:
    FrameQueue();
    ~FrameQueue();
    FrameQueue(const FrameQueue&) = delete;
    FrameQueue& operator=(const FrameQueue&) = delete;

    /// Delivery thread.
    void push(std::span<const MTFinger> fingers);

    /// Hands the oldest frame to `process` and says whether there was one. Main thread.
    template<typename Process>
    bool pop(Process process) {
        Node* next = oldest_.load(std::memory_order_relaxed)->next.load(std::memory_order_acquire);
        if (!next)
            return false;
        process(std::span<const MTFinger>(next->fingers));
        oldest_.store(next, std::memory_order_release);
        return true;
    }

private:
    struct Node {
        std::vector<MTFinger> fingers;
        std::atomic<Node*> next = nullptr;
    };

    Node* unusedNode();

    // One chain: free nodes from firstFree_ up to oldest_, then oldest_ itself, whose frame has
    // been popped, then the frames that wait, up to newest_.
    Node* firstFree_;           // pushing side
    Node* knownOldest_;         // pushing side's last look at oldest_
    Node* newest_;              // pushing side
    std::atomic<Node*> oldest_; // written by the popping side
};

} // namespace brimlow
