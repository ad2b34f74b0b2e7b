entity top is
end entity top;
