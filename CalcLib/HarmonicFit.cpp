#include "CalcLib/CalcRoutines.h"
#include "CalcLib/NumericConstants.h"

#include <algorithm>
#include <complex>
#include <new>

namespace {
using NumericConstants::kPi;
using NumericConstants::kTwoPi;
using Complex = std::complex<double>;

// Steps of e^(j k theta) by rotation, which keeps the magnitude where a long run of the
// two-term recurrence would let it drift.
struct Rotor
{
    explicit Rotor(double theta) : step(std::cos(theta), std::sin(theta)) { }
    Complex next()
    {
        const Complex now = value;
        value *= step;
        return now;
    }
    Complex step;
    Complex value { 1.0, 0.0 };
};

void buildToeplitzColumn(int n, double normFrequency, int order, double* toeplitzRe, double* toeplitzIm)
{
    toeplitzRe[0] = n;
    toeplitzIm[0] = 0.0;
    Rotor base(kPi * normFrequency);
    Rotor span((n - 1) * kPi * normFrequency);
    base.next();
    span.next();
    for (int q = 1; q < order; ++q) {
        const Complex b = base.next(); // e^(j q pi f)
        const Complex a = span.next(); // e^(j q (n - 1) pi f)
        // sin(q n pi f) / sin(q pi f), written so that it needs no sine of q n pi f.
        const double d = b.real() * a.imag() / b.imag() + a.real();
        toeplitzRe[q] = a.real() * d;
        toeplitzIm[q] = -a.imag() * d;
    }
}

void buildRightHandSide(const double* y, int n, double normFrequency, int m, double* fitRe, double* fitIm)
{
    double sum = 0.0;
    for (int i = 0; i < n; ++i)
        sum += y[i];
    fitRe[m] = sum;
    fitIm[m] = 0.0;
    for (int k = 1; k <= m; ++k) {
        Rotor rotor(kTwoPi * normFrequency * k);
        double re = 0.0;
        double im = 0.0;
        for (int i = 0; i < n; ++i) {
            const Complex e = rotor.next();
            re += y[i] * e.real();
            im -= y[i] * e.imag();
        }
        fitRe[m + k] = re;
        fitIm[m + k] = im;
        // The data are real: the negative harmonic is the conjugate.
        fitRe[m - k] = re;
        fitIm[m - k] = -im;
    }
}

// Element (r, c) of the Hermitian Toeplitz matrix for r >= c is t[r - c]. x holds the
// right-hand side; after order p its first p + 1 entries hold the solution of that order.
int levinson(int order, const Complex* t, Complex* x)
{
    std::vector<Complex> forward;
    std::vector<Complex> previous;
    try {
        forward.assign(static_cast<size_t>(order), Complex());
        previous.assign(static_cast<size_t>(order), Complex());
    } catch (const std::bad_alloc&) {
        return -2;
    }
    double error = t[0].real();
    if (!(error > 0.0))
        return -1;
    forward[0] = 1.0;
    x[0] /= error;
    for (int p = 0; p + 1 < order; ++p) {
        Complex delta = 0.0;
        for (int i = 0; i <= p; ++i)
            delta += t[p + 1 - i] * forward[i];
        const Complex reflection = -delta / error;
        std::copy(forward.begin(), forward.begin() + p + 1, previous.begin());
        forward[p + 1] = 0.0;
        // The backward vector of a Hermitian Toeplitz matrix is the reversed conjugate of the forward one.
        for (int i = 1; i <= p + 1; ++i)
            forward[i] += reflection * std::conj(previous[p + 1 - i]);
        error += (reflection * std::conj(delta)).real();
        if (!(error > 0.0))
            return -1;

        Complex eta = 0.0;
        for (int i = 0; i <= p; ++i)
            eta += t[p + 1 - i] * x[i];
        const Complex gain = (x[p + 1] - eta) / error;
        x[p + 1] = 0.0;
        for (int i = 0; i <= p + 1; ++i)
            x[i] += gain * std::conj(forward[p + 1 - i]);
    }
    return 0;
}
} // namespace

void buildHarmonicSystem(const double* samples, int count, double normFrequency, int harmonics,
    double* toeplitzRe, double* toeplitzIm, double* fitRe, double* fitIm)
{
    buildToeplitzColumn(count, normFrequency, 2 * harmonics + 1, toeplitzRe, toeplitzIm);
    buildRightHandSide(samples, count, normFrequency, harmonics, fitRe, fitIm);
}

int solveToeplitz(int order, const double* toeplitzRe, const double* toeplitzIm, double* re, double* im)
{
    if (order < 1)
        return 0;
    if (toeplitzRe[0] == 0.0)
        return -1;
    std::vector<Complex> t;
    std::vector<Complex> x;
    try {
        t.resize(static_cast<size_t>(order));
        x.resize(static_cast<size_t>(order));
    } catch (const std::bad_alloc&) {
        return -2;
    }
    for (int i = 0; i < order; ++i) {
        t[i] = Complex(toeplitzRe[i], toeplitzIm[i]);
        x[i] = Complex(re[i], im[i]);
    }
    const int status = levinson(order, t.data(), x.data());
    if (status != 0)
        return status;
    for (int i = 0; i < order; ++i) {
        re[i] = x[i].real();
        im[i] = x[i].imag();
    }
    return 0;
}
