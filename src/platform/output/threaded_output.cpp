#include "platform/output/threaded_output.h"

namespace tandem {

void OrderedOutput::open(int buffer_bytes) { post(OutputOrder::Kind::kOpen, buffer_bytes); }
void OrderedOutput::close() { post(OutputOrder::Kind::kClose); }
void OrderedOutput::start() { post(OutputOrder::Kind::kStart); }
void OrderedOutput::stop() { post(OutputOrder::Kind::kStop); }
void OrderedOutput::pause() { post(OutputOrder::Kind::kPause); }
void OrderedOutput::restart() { post(OutputOrder::Kind::kRestart); }
void OrderedOutput::set_depth(int buffers) { post(OutputOrder::Kind::kDepth, buffers); }

void OrderedOutput::post(OutputOrder::Kind kind, int value) { orders_.post({kind, value, ring_.written()}); }

}  // namespace tandem
