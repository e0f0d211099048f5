#include "headless/faulty_services.h"

namespace kvt {

// Settings and number are kept on this side, and events are told on it.
void FaultyPort::Open() {
    faults_.Pass("port", fault::PortAlreadyOpen);
    port_.OnComm = [this](CommEvent event) { Tell(event); };
    port_.SetCommPort(CommPort());
    port_.SetSettings(Settings());
    port_.Open();
}

}  // namespace kvt
