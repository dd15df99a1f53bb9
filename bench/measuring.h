#pragma once

#include <QtGlobal>

#include <vector>

/** Microseconds on the clock on the wall; only differences mean something. The same in every process. */
double wallTime();
/** Processor time of the calling thread so far, in microseconds. */
double threadTime();
/** Processor time of all threads of process @p pid so far, in microseconds; 0 when there is no such process. */
double processTime(qint64 pid);
/** Resident memory of process @p pid in kilobytes, shared pages included; 0 when there is no such process. */
double residentKilobytes(qint64 pid);

/** What repeated rounds of one measurement gave. */
class Samples
{
public:
    void add(double value) { m_values.push_back(value); }
    double median() const { return percentile(50); }
    /** The least value that @p percent of all values do not exceed. REQUIRES: there are values. */
    double percentile(double percent) const;

private:
    std::vector<double> m_values;
};

/** The same work done by the program and by something that does the least possible for it, in turns. */
struct Comparison
{
    Samples ours;
    Samples baseline;
};
