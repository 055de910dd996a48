// SPDX-License-Identifier: MIT
//
// growth: what a search needs beside the tables of initializesolve: what is built before the first,
// and which of the larger tables are worth filling, and when.
//
// The greatest tables of near1, near2 and cornerclass take longer to fill than most searches last.
// Each is filled once what it would have saved so far, in all searches, and is about to save, is
// worth it. Nothing is allocated or filled during a depth.
//
// State     counts of the nodes that a table would spare, or make quicker, in all searches.
// Callers   solver and search; stage1 and stage2 count.
// Order     search_tables_init after the steps of initializesolve, in whatever way they were taken.
#pragma once

extern long long near1_visits;  // of nodes just outside the ordinary tables of near1
extern long long near2_visits;  // of nodes just outside the ordinary sieves of near2
extern long long corner_visits; // of nodes that the whole corners might have cut off

// Such nodes as cost as much as to fill the table.
constexpr long long near1_patience = 1'500'000;
constexpr long long near2_patience = 500'000;
constexpr long long corner_patience = 500'000;

// Builds what every search needs; does nothing when it is built. 0.03 s.
void search_tables_init();

// Between two depths: fills what will be repaid by a depth of stage 1. false if Alt+Q interrupted.
[[nodiscard]] bool grow_tables(int depth);
