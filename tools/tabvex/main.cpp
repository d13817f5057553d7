#include "tool.h"

int main(int argc, char** argv) {
    return tabvex::tool::RunTool(argc, argv);
}
