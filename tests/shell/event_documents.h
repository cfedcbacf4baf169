// The table of one event in both kinds of document, 576 by 576 device units on a screen of 96 dots
// per inch: letters 5 wide, lines 10 high.
#pragma once

namespace ondrel {

/// Lines end in CR and LF.
inline constexpr char kEventsInIllustrator[] = R"(%!PS-Adobe-2.0 EPSF-1.2
%%DocumentProcSets: Adobe_Illustrator_1.1 0 0
%%BoundingBox: 0 0 576 576
%%TemplateBox: 0 0 576 576
%%EndComments
%%EndProlog
q
0.000 576.000 m
576.000 576.000 l
576.000 0.000 l
0.000 0.000 l
0.000 576.000 l
h
W
n
1.000 1.000 0.000 0.000 k
/_Helvetica 10 10 0 2 z
[1 0 0 1 190.000 568.000]e
3(Pre)t
T
/_Helvetica 10 10 0 2 z
[1 0 0 1 275.000 568.000]e
4(Post)t
T
/_Helvetica 10 10 0 2 z
[1 0 0 1 370.000 568.000]e
3(Tag)t
T
/_Helvetica 10 10 0 2 z
[1 0 0 1 35.000 558.000]e
5(Sweep)t
T
/_Helvetica 10 10 0 2 z
[1 0 0 1 105.000 558.000]e
13(Transition(s))t
T
/_Helvetica 10 10 0 2 z
[1 0 0 1 190.000 558.000]e
13(Amplitude(pA))t
T
/_Helvetica 10 10 0 2 z
[1 0 0 1 275.000 558.000]e
13(Amplitude(pA))t
T
/_Helvetica 10 10 0 2 z
[1 0 0 1 315.000 558.000]e
5(Level)t
T
/_Helvetica 10 10 0 2 z
[1 0 0 1 370.000 558.000]e
5(Value)t
T
0.000 0.000 0.000 1.000 k
/_Helvetica 10 10 0 2 z
[1 0 0 1 35.000 546.000]e
1(1)t
T
/_Helvetica 10 10 0 2 z
[1 0 0 1 105.000 546.000]e
8(0.010000)t
T
/_Helvetica 10 10 0 2 z
[1 0 0 1 190.000 546.000]e
4(0.00)t
T
/_Helvetica 10 10 0 2 z
[1 0 0 1 275.000 546.000]e
5(-2.50)t
T
/_Helvetica 10 10 0 2 z
[1 0 0 1 315.000 546.000]e
1(1)t
T
/_Helvetica 10 10 0 2 z
[1 0 0 1 370.000 546.000]e
6(0.2500)t
T
Q
%%Trailer
)";

inline constexpr char kEventsInEps[] = R"(%!PS-Adobe-3.0 EPSF-3.0
%%BoundingBox: 0 0 432 432
%%EndComments
%%EndProlog
30 30 translate
/right_show {
  dup
  stringwidth pop
  4 -1 roll exch sub
  3 -1 roll moveto
  show
} def
0.000 432.000 moveto
432.000 432.000 lineto
432.000 0.000 lineto
0.000 0.000 lineto
0.000 432.000 lineto
clip
newpath
1.000 1.000 0.000 0.000 setcmykcolor
/Helvetica findfont
10 scalefont setfont
142.500 426.000
(Pre) right_show
/Helvetica findfont
10 scalefont setfont
206.250 426.000
(Post) right_show
/Helvetica findfont
10 scalefont setfont
277.500 426.000
(Tag) right_show
/Helvetica findfont
10 scalefont setfont
26.250 418.500
(Sweep) right_show
/Helvetica findfont
10 scalefont setfont
78.750 418.500
(Transition(s)) right_show
/Helvetica findfont
10 scalefont setfont
142.500 418.500
(Amplitude(pA)) right_show
/Helvetica findfont
10 scalefont setfont
206.250 418.500
(Amplitude(pA)) right_show
/Helvetica findfont
10 scalefont setfont
236.250 418.500
(Level) right_show
/Helvetica findfont
10 scalefont setfont
277.500 418.500
(Value) right_show
0.000 0.000 0.000 1.000 setcmykcolor
/Helvetica findfont
10 scalefont setfont
26.250 409.500
(1) right_show
/Helvetica findfont
10 scalefont setfont
78.750 409.500
(0.010000) right_show
/Helvetica findfont
10 scalefont setfont
142.500 409.500
(0.00) right_show
/Helvetica findfont
10 scalefont setfont
206.250 409.500
(-2.50) right_show
/Helvetica findfont
10 scalefont setfont
236.250 409.500
(1) right_show
/Helvetica findfont
10 scalefont setfont
277.500 409.500
(0.2500) right_show
showpage
%%EOF
)";

}  // namespace ondrel
