// make-demo-recording: writes the shipped recording to standard output.

#include "tools/recording/DemoRecording.h"
#include "tools/recording/RecordingWriter.h"

#include <cstdio>

using namespace brimlow::platform;

int main() {
    const PadScript script = demo::script();
    const std::string text = writeRecording({script.pad(), script.events()});
    const bool written = std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
    return written && std::fflush(stdout) == 0 ? 0 : 1;
}
