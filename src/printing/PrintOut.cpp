#include "printing/PrintOut.h"

PrintOut::~PrintOut() = default;
