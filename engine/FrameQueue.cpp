#include "engine/FrameQueue.h"

#include <utility>

namespace brimlow {

namespace {
constexpr std::size_t usualContacts = 16; // more fingers than a trackpad reports
}

FrameQueue::FrameQueue()
    : firstFree_(new Node), knownOldest_(firstFree_), newest_(firstFree_), oldest_(firstFree_) {}

FrameQueue::~FrameQueue() {
    for (Node* node = firstFree_; node;)
        delete std::exchange(node, node->next.load());
}

void FrameQueue::push(std::span<const MTFinger> fingers) {
    Node* node = unusedNode();
    node->fingers.assign(fingers.begin(), fingers.end());
    node->next.store(nullptr, std::memory_order_relaxed);
    newest_->next.store(node, std::memory_order_release);
    newest_ = node;
}

FrameQueue::Node* FrameQueue::unusedNode() {
    if (firstFree_ == knownOldest_)
        knownOldest_ = oldest_.load(std::memory_order_acquire);
    if (firstFree_ == knownOldest_) {
        auto* node = new Node;
        node->fingers.reserve(usualContacts);
        return node;
    }
    return std::exchange(firstFree_, firstFree_->next.load(std::memory_order_relaxed));
}

} // namespace brimlow
