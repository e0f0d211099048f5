see %!* there
%
   N00 G22 X      Z       F    end
   M
