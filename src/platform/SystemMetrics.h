#pragma once
// GetSystemMetrics for the sizes the controls lay themselves out by, with
// the Windows indexes, answered from the toolkit's metrics.

constexpr int SM_CXSCREEN = 0;
constexpr int SM_CYSCREEN = 1;
constexpr int SM_CXVSCROLL = 2;
constexpr int SM_CYHSCROLL = 3;
constexpr int SM_CXBORDER = 5;
constexpr int SM_CYBORDER = 6;
constexpr int SM_CXICON = 11;
constexpr int SM_CYICON = 12;
constexpr int SM_CXDOUBLECLK = 36;
constexpr int SM_CYDOUBLECLK = 37;
constexpr int SM_CXEDGE = 45;
constexpr int SM_CYEDGE = 46;
constexpr int SM_CXSMICON = 49;
constexpr int SM_CYSMICON = 50;
constexpr int SM_CXDRAG = 68;
constexpr int SM_CYDRAG = 69;

// 0 for an index the toolkit cannot answer, as Windows gives for an unknown one.
int GetSystemMetrics(int index);
