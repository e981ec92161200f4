// Vite's development server copies packages to a folder of its own, where the code would not find its module.
export default {
  build: { target: "es2022" },
  optimizeDeps: { exclude: ["orivanta"] },
};
