#include "platform/output/threaded_output.h"

namespace tandem {

void ThreadedOutput::open(int buffer_bytes) { post(OutputCommand::Kind::kOpen, buffer_bytes); }
void ThreadedOutput::close() { post(OutputCommand::Kind::kClose); }
void ThreadedOutput::start() { post(OutputCommand::Kind::kStart); }
void ThreadedOutput::stop() { post(OutputCommand::Kind::kStop); }
void ThreadedOutput::pause() { post(OutputCommand::Kind::kPause); }
void ThreadedOutput::restart() { post(OutputCommand::Kind::kRestart); }
void ThreadedOutput::set_queue_length(int buffers) { post(OutputCommand::Kind::kDepth, buffers); }

void ThreadedOutput::post(OutputCommand::Kind kind, int value) { orders_.post({kind, value, ring_.written()}); }

}  // namespace tandem
