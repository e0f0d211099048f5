#include "app/web_session.h"
#include "basic/failure.h"
#include "web/emscripten_link.h"

int main() {
    return kvt::RunMain("kvt", 1, [] {
        kvt::EmscriptenLink link;
        kvt::WebSession session(link);
        session.Start();
        session.Run();
        return 0;
    });
}
